#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

/// The group codes of drawing files: what kind of value each has, and names for the ones that every kind of object
/// shares. Who needs to know either asks here.
namespace dxf
{

/// What the value of a group is, and with it how a binary file stores it.
enum class ValueKind : uint8_t
{
    None,   ///< the format has no such group
    String, ///< text in the drawing's encoding
    Real,
    Int16, ///< written signed; flag words are read unsigned as well
    Int32,
    Int64,
    Bool,
    Handle, ///< an object's own handle, or that of another object: hexadecimal digits
    Chunk   ///< binary data: hexadecimal digits, two a byte
};

struct CodeRange
{
    int first;
    int last;
    ValueKind kind;
};

/// Every group code of the format, in ascending order.
inline constexpr std::array kCodeRanges{
    CodeRange{0, 4, ValueKind::String},       CodeRange{5, 5, ValueKind::Handle},
    CodeRange{6, 9, ValueKind::String},       CodeRange{10, 59, ValueKind::Real},
    CodeRange{60, 79, ValueKind::Int16},      CodeRange{90, 99, ValueKind::Int32},
    CodeRange{100, 102, ValueKind::String},   CodeRange{105, 105, ValueKind::Handle},
    CodeRange{110, 149, ValueKind::Real},     CodeRange{160, 169, ValueKind::Int64},
    CodeRange{170, 179, ValueKind::Int16},    CodeRange{210, 239, ValueKind::Real},
    CodeRange{270, 289, ValueKind::Int16},    CodeRange{290, 299, ValueKind::Bool},
    CodeRange{300, 309, ValueKind::String},   CodeRange{310, 319, ValueKind::Chunk},
    CodeRange{320, 369, ValueKind::Handle},   CodeRange{370, 389, ValueKind::Int16},
    CodeRange{390, 399, ValueKind::Handle},   CodeRange{400, 409, ValueKind::Int16},
    CodeRange{410, 419, ValueKind::String},   CodeRange{420, 429, ValueKind::Int32},
    CodeRange{430, 439, ValueKind::String},   CodeRange{440, 459, ValueKind::Int32},
    CodeRange{460, 469, ValueKind::Real},     CodeRange{470, 479, ValueKind::String},
    CodeRange{480, 481, ValueKind::Handle},   CodeRange{999, 1003, ValueKind::String},
    CodeRange{1004, 1004, ValueKind::Chunk},  CodeRange{1005, 1005, ValueKind::Handle},
    CodeRange{1006, 1009, ValueKind::String}, CodeRange{1010, 1059, ValueKind::Real},
    CodeRange{1060, 1070, ValueKind::Int16},  CodeRange{1071, 1071, ValueKind::Int32},
};

constexpr int kLastCode = kCodeRanges.back().last;

namespace detail
{

constexpr std::array<ValueKind, kLastCode + 1> kindsByCode()
{
    std::array<ValueKind, kLastCode + 1> kinds{};
    for (const CodeRange& range : kCodeRanges)
        for (int code = range.first; code <= range.last; ++code)
            kinds[static_cast<size_t>(code)] = range.kind;
    return kinds;
}

inline constexpr std::array<ValueKind, kLastCode + 1> kKinds = kindsByCode();

} // namespace detail

constexpr ValueKind kindOf(int code)
{
    return code >= 0 && code <= kLastCode ? detail::kKinds[static_cast<size_t>(code)] : ValueKind::None;
}

// Groups that mean the same wherever they stand.
constexpr int kType = 0; ///< what an object is: begins it
constexpr int kHandle = 5;
constexpr int kLayer = 8;
constexpr int kVariable = 9; ///< name of a variable of the HEADER section
constexpr int kColor = 62;
constexpr int kPaperSpace = 67; ///< 1: the entity lies in paper space
constexpr int kClassMarker = 100;
constexpr int kEmbeddedObject = 101;
constexpr int kControl = 102; ///< "{" with a name, or "}": around what an application hangs on an object
constexpr int kHandleOfDimStyle = 105;
constexpr int kOwner = 330;
constexpr int kTrueColor = 420;
constexpr int kColorName = 430;
constexpr int kComment = 999;
// Extended data: for each application its name, then values.
constexpr int kXString = 1000; ///< the first code of extended data
constexpr int kXApplication = 1001;
constexpr int kXLayer = 1003;
constexpr int kXReference = 1005;

constexpr bool isText(int code)
{
    return kindOf(code) == ValueKind::String;
}

constexpr bool isReal(int code)
{
    return kindOf(code) == ValueKind::Real;
}

constexpr bool isInteger(int code)
{
    const ValueKind kind = kindOf(code);
    return kind == ValueKind::Int16 || kind == ValueKind::Int32 || kind == ValueKind::Int64 || kind == ValueKind::Bool;
}

/// What a reference to another object stands in; an object's own handle (5, 105) is none.
constexpr bool isReference(int code)
{
    return kindOf(code) == ValueKind::Handle && code != kHandle && code != kHandleOfDimStyle;
}

/// The x of a point or direction; y and z follow with codes 10 and 20 higher.
constexpr bool isFirstCoordinate(int code)
{
    return (code >= 10 && code <= 18) || (code >= 110 && code <= 112) || (code >= 210 && code <= 213) ||
           (code >= 1010 && code <= 1013);
}

constexpr int kToSecondCoordinate = 10;

} // namespace dxf
