#include "util/numbers.h"

#include "util/fields.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

namespace
{

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

/// `text` behind its white space, as far as it can matter to a number.
std::string numberCharacters(std::u16string_view text)
{
    while (!text.empty() && IsSpace(text.front()))
        text.remove_prefix(1);
    const auto plain = [](char16_t unit) { return unit > u' ' && unit < 0x7F; };
    const auto end = std::find_if_not(text.begin(), text.end(), plain);
    return {text.begin(), end};
}

/// Takes the sign off `digits`.
bool takeSign(std::string_view& digits)
{
    const bool negative = digits.starts_with('-');
    if (negative || digits.starts_with('+'))
        digits.remove_prefix(1);
    return negative;
}

bool startsNumber(std::string_view digits)
{
    if (digits.starts_with('.'))
        digits.remove_prefix(1);
    return !digits.empty() && isDigit(digits.front());
}

/// Of a number out of range, whether it is too large rather than too small: by the decimal place of its first digit
/// that is not 0.
bool isTooLarge(std::string_view number)
{
    constexpr long kFar = 1'000'000'000;
    const size_t exponentAt = std::min(number.find_first_of("eE"), number.size());
    const std::string_view mantissa = number.substr(0, exponentAt);
    const size_t point = std::min(mantissa.find('.'), mantissa.size());
    const auto first = static_cast<long>(mantissa.find_first_not_of("0."));
    const long place = static_cast<long>(point) - first;

    std::string_view exponent = number.substr(std::min(exponentAt + 1, number.size()));
    const bool negative = takeSign(exponent);
    long power = 0;
    for (const char digit : exponent)
        power = std::min(kFar, power * 10 + (digit - '0'));
    return place + (negative ? -power : power) > 0;
}

} // namespace

bool StartsWithReal(std::u16string_view text)
{
    const std::string characters = numberCharacters(text);
    std::string_view digits = characters;
    takeSign(digits);
    return startsNumber(digits);
}

double ToReal(std::u16string_view text)
{
    const std::string characters = numberCharacters(text);
    std::string_view digits = characters;
    const bool negative = takeSign(digits);
    if (!startsNumber(digits))
        return 0.0;
    double value = 0.0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    if (error == std::errc::result_out_of_range)
    {
        const std::string_view number = digits.substr(0, static_cast<size_t>(end - digits.data()));
        value = isTooLarge(number) ? std::numeric_limits<double>::infinity() : 0.0;
    }
    return negative ? -value : value;
}

int ToInteger(std::u16string_view text)
{
    const std::string characters = numberCharacters(text);
    std::string_view digits = characters;
    const bool negative = takeSign(digits);
    if (digits.empty() || !isDigit(digits.front()))
        return 0;
    long long value = 0;
    if (std::from_chars(digits.data(), digits.data() + digits.size(), value).ec == std::errc::result_out_of_range)
        value = std::numeric_limits<long long>::max();
    using Range = std::numeric_limits<int>;
    return static_cast<int>(std::clamp<long long>(negative ? -value : value, Range::min(), Range::max()));
}

std::u16string FormatReal(double value, int decimals)
{
    std::string digits(std::numeric_limits<double>::max_exponent10 + static_cast<size_t>(decimals) + 4, '\0');
    const auto [end, error] =
        std::to_chars(digits.data(), digits.data() + digits.size(), value, std::chars_format::fixed, decimals);
    return {digits.data(), end};
}

std::u16string FormatInteger(int value)
{
    const std::string digits = std::to_string(value);
    return {digits.begin(), digits.end()};
}
