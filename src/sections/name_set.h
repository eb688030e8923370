#pragma once

#include "host/text.h"
#include "sections/records.h"

#include <set>
#include <string>
#include <string_view>

/// What the user set for one name or feature code: remembered from scan to scan, and shown as one row of the settings
/// tables.
struct SetName_Index : SymbolLook
{
    explicit SetName_Index(std::u16string name, SymbolLook look = {})
        : SymbolLook(std::move(look)), m_strName(std::move(name))
    {
    }
    explicit SetName_Index(const BlockData& row) : SetName_Index(row.m_strName, row.look()) {}
    explicit SetName_Index(const BlockFcode& row) : SetName_Index(row.m_strFcode, row.look()) {}

    std::u16string m_strName;
};

/// Records by name, in the order of their names without regard to case. Of two records whose names differ in case
/// only, the first one stays.
class NameSet
{
    struct ByName
    {
        using is_transparent = void;
        bool operator()(const SetName_Index& a, const SetName_Index& b) const { return less(a.m_strName, b.m_strName); }
        bool operator()(const SetName_Index& a, std::u16string_view b) const { return less(a.m_strName, b); }
        bool operator()(std::u16string_view a, const SetName_Index& b) const { return less(a, b.m_strName); }
        LessNoCase less;
    };

public:
    /// Keeps `record` unless its name is there already.
    void insert(SetName_Index record) { m_records.insert(std::move(record)); }

    /// Keeps a record of `row` unless its name is there already, and then without copying it.
    void insert(const BlockData& row) { insertRow(row, row.m_strName); }
    void insert(const BlockFcode& row) { insertRow(row, row.m_strFcode); }

    /// The record of `name`, or null. It lives until the set changes.
    const SetName_Index* find(std::u16string_view name) const;

    void clear() { m_records.clear(); }
    size_t size() const { return m_records.size(); }
    bool empty() const { return m_records.empty(); }
    auto begin() const { return m_records.begin(); }
    auto end() const { return m_records.end(); }

private:
    template <class Row>
    void insertRow(const Row& row, std::u16string_view name)
    {
        if (const auto at = m_records.lower_bound(name); at == m_records.end() || m_records.key_comp()(name, *at))
            m_records.emplace_hint(at, row);
    }

    std::set<SetName_Index, ByName> m_records;
};
