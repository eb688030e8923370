#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

/// Decimal numbers in text, with a point whatever the locale.
namespace dxf
{

/// The decimal number at the start of a text (sign, digits, point, exponent) and how many characters it takes; none
/// when there is none (also for words such as "inf"). Too large gives infinity, too small 0.
struct LeadingReal
{
    double value = 0.0;
    size_t length = 0;
};
LeadingReal leadingReal(std::string_view text);

/// The same for whole numbers; too large gives the largest, too small the smallest.
struct LeadingInteger
{
    int64_t value = 0;
    size_t length = 0;
};
LeadingInteger leadingInteger(std::string_view text);

/// `text` without blanks (also the carriage return of its line end) at both ends.
std::string_view withoutBlanks(std::string_view text);

/// The value of a group as a number, between blanks: a decimal number and nothing else, in the range of a double
/// (what is too small for it is 0). Nothing for any other text.
std::optional<double> readReal(std::string_view value);
/// The value as a whole number, of which "1.0" is one.
std::optional<int64_t> readInteger(std::string_view value);
/// The value as hexadecimal digits of at most 64 bits.
std::optional<uint64_t> readHandle(std::string_view value);

} // namespace dxf
