#pragma once

#include <compare>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

class AcDbDatabase;
struct ObjectRecord;

/// An object's handle: the number by which files name it. Zero is no handle.
class AcDbHandle
{
public:
    AcDbHandle() = default;
    explicit AcDbHandle(uint64_t value) : m_value{value} {}

    uint64_t value() const { return m_value; }
    bool isNull() const { return m_value == 0; }

    /// Writes the handle as upper-case hexadecimal digits and a terminator into `buffer` of `size` characters; false
    /// when it does not fit.
    bool getIntoAsciiBuffer(char16_t* buffer, size_t size) const;

    friend auto operator<=>(const AcDbHandle&, const AcDbHandle&) = default;

private:
    uint64_t m_value = 0;
};

/// Names an object of a database for as long as that database lives. Costs a pointer; the null id means none. An id
/// whose handle names nothing in its drawing exists too: it cannot be opened, and is written back as it was read.
class AcDbObjectId
{
public:
    static const AcDbObjectId kNull;

    constexpr AcDbObjectId() = default;
    constexpr explicit AcDbObjectId(ObjectRecord* record) : m_record{record} {}

    constexpr bool isNull() const { return m_record == nullptr; }
    constexpr bool isValid() const { return m_record != nullptr; }
    bool isErased() const;
    AcDbHandle handle() const;
    AcDbDatabase* database() const;

    /// The record behind the id; the host's own business.
    constexpr ObjectRecord* record() const { return m_record; }

    friend constexpr bool operator==(AcDbObjectId, AcDbObjectId) = default;
    friend auto operator<=>(AcDbObjectId a, AcDbObjectId b) { return std::compare_three_way{}(a.m_record, b.m_record); }

private:
    ObjectRecord* m_record = nullptr;
};

inline constexpr AcDbObjectId AcDbObjectId::kNull{};

using AcDbObjectIdArray = std::vector<AcDbObjectId>;

template <>
struct std::hash<AcDbObjectId>
{
    size_t operator()(AcDbObjectId id) const { return std::hash<const void*>{}(id.record()); }
};
