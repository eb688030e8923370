#pragma once

#include "kernel/point3d.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// One pair of a drawing: a group code and its value as it stands in the file, without its line end.
struct Tag
{
    int code = 0;
    std::string_view value;
    const char* begin = nullptr; ///< first byte of the code's line
    const char* end = nullptr;   ///< behind the value's line end

    /// The value as a number, read strictly; DamagedValue when it is none. A group of 16 bits may be written signed or
    /// unsigned, and reads signed.
    double real() const;
    int64_t integer() const;
    /// The same for what may be guessed: the fallback in place of damage.
    int64_t integerOr(int64_t fallback) const;
    /// The value as a hexadecimal handle; 0 when it is none.
    uint64_t handle() const;
    /// The value without blanks at both ends, as names of types and sections are read.
    std::string_view word() const;
};

/// Thrown where a value is decoded that is no number and ought to be one. It never leaves the host: whoever reads an
/// object catches it and notes it (`damage.h`).
struct DamagedValue
{
    Tag tag;
};

/// Walks the pairs of a piece of drawing text. Text that does not end on a whole pair ends the walk.
class TagReader
{
public:
    explicit TagReader(std::string_view text) : m_at{text.data()}, m_end{text.data() + text.size()} {}

    /// Gives the next pair in `tag`; false at the end.
    bool next(Tag& tag);

    /// Reads a point whose x was just read as `x` (codes c, c+10, c+20; what is missing is 0). The others
    /// follow directly as a rule; they may stand farther on, before the next x. DamagedValue when one is no
    /// number; the reader then stands behind those that follow directly.
    AcGePoint3d pointFrom(const Tag& x);

    const char* position() const { return m_at; }

private:
    std::string_view line();
    bool takeCoordinate(const Tag& x, int step, Tag& found);

    const char* m_at;
    const char* m_end;
};

/// Builds drawing text pair by pair: codes right-aligned to three columns, reals so that they read back to the same
/// double, "\n" as line end. The text belongs to the writer until taken.
class TagWriter
{
public:
    void text(int code, std::string_view value);
    void integer(int code, int64_t value);
    void real(int code, double value);
    void handle(int code, uint64_t value);
    /// Codes `code`, `code`+10 and `code`+20.
    void point(int code, const AcGePoint3d& value);
    /// Text that is whole pairs already.
    void raw(std::string_view pairs) { m_text.append(pairs); }

    std::string_view view() const { return m_text; }
    std::string take() { return std::move(m_text); }
    void clear() { m_text.clear(); }

private:
    void code(int value);

    std::string m_text;
};
