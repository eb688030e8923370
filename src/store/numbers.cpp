#include "store/numbers.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>

namespace dxf
{

namespace
{

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

bool isBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\r';
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
    constexpr int64_t kFar = 1'000'000'000;
    const size_t exponentAt = std::min(number.find_first_of("eE"), number.size());
    const std::string_view mantissa = number.substr(0, exponentAt);
    const size_t point = std::min(mantissa.find('.'), mantissa.size());
    const auto first = static_cast<int64_t>(mantissa.find_first_not_of("0."));
    const int64_t place = static_cast<int64_t>(point) - first;

    std::string_view exponent = number.substr(std::min(exponentAt + 1, number.size()));
    const bool negative = takeSign(exponent);
    int64_t power = 0;
    for (const char digit : exponent)
        power = std::min(kFar, power * 10 + (digit - '0'));
    return place + (negative ? -power : power) > 0;
}

/// A number without a sign and an exponent whose digits are a whole number below 2^53, as coordinates are: that and a
/// power of ten are exact, so their quotient is the nearest double. Nothing for any other, and for none.
std::optional<LeadingReal> plainReal(std::string_view digits)
{
    constexpr std::array kPowers{1e0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
    constexpr uint64_t kFirstInexact = uint64_t{1} << 53;
    uint64_t whole = 0;
    const char* at = digits.data();
    const char* const end = at + std::min<size_t>(digits.size(), 18); // 18 digits do not overflow
    for (; at != end && isDigit(*at); ++at)
        whole = whole * 10 + static_cast<uint64_t>(*at - '0');
    size_t decimals = 0;
    if (at != digits.data() && at != end && *at == '.')
    {
        const char* const first = ++at;
        for (; at != end && isDigit(*at); ++at)
            whole = whole * 10 + static_cast<uint64_t>(*at - '0');
        decimals = static_cast<size_t>(at - first);
    }
    const auto length = static_cast<size_t>(at - digits.data());
    const bool isCut = at == end && length < digits.size();
    const bool hasExponent = at != end && (*at == 'e' || *at == 'E');
    if (length == 0 || isCut || hasExponent || whole >= kFirstInexact || decimals >= kPowers.size())
        return std::nullopt;
    return LeadingReal{static_cast<double>(whole) / kPowers[decimals], length};
}

} // namespace

LeadingReal leadingReal(std::string_view text)
{
    std::string_view digits = text;
    const bool negative = takeSign(digits);
    if (const auto plain = plainReal(digits))
        return {negative ? -plain->value : plain->value, plain->length + (text.size() - digits.size())};
    if (!startsNumber(digits))
        return {};
    double value = 0.0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    if (error == std::errc::result_out_of_range)
    {
        const std::string_view number = digits.substr(0, static_cast<size_t>(end - digits.data()));
        value = isTooLarge(number) ? std::numeric_limits<double>::infinity() : 0.0;
    }
    return {negative ? -value : value, static_cast<size_t>(end - text.data())};
}

LeadingInteger leadingInteger(std::string_view text)
{
    std::string_view digits = text;
    const bool negative = takeSign(digits);
    if (digits.empty() || !isDigit(digits.front()))
        return {};
    int64_t value = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    using Range = std::numeric_limits<int64_t>;
    if (error == std::errc::result_out_of_range)
        value = negative ? Range::min() : Range::max();
    else if (negative)
        value = -value;
    return {value, static_cast<size_t>(end - text.data())};
}

std::string_view withoutBlanks(std::string_view text)
{
    while (!text.empty() && isBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

std::optional<double> readReal(std::string_view value)
{
    const std::string_view text = withoutBlanks(value);
    double number = 0.0;
    const char* const textEnd = text.data() + text.size();
    if (const auto [end, error] = std::from_chars(text.data(), textEnd, number);
        error == std::errc{} && end == textEnd && std::isfinite(number))
        return number;
    const LeadingReal found = leadingReal(text);
    const bool isNumber = found.length > 0 && found.length == text.size() && std::isfinite(found.value);
    return isNumber ? std::optional{found.value} : std::nullopt;
}

std::optional<int64_t> readInteger(std::string_view value)
{
    const std::string_view text = withoutBlanks(value);
    int64_t number = 0;
    const char* const textEnd = text.data() + text.size();
    if (const auto [end, error] = std::from_chars(text.data(), textEnd, number); error == std::errc{} && end == textEnd)
        return number;
    constexpr double kFirstTooLarge = 9223372036854775808.0;
    const std::optional<double> real = readReal(text);
    const bool isWhole = real && std::fabs(*real) < kFirstTooLarge && *real == std::trunc(*real);
    return isWhole ? std::optional{static_cast<int64_t>(*real)} : std::nullopt;
}

std::optional<uint64_t> readHandle(std::string_view value)
{
    const std::string_view text = withoutBlanks(value);
    uint64_t number = 0;
    const char* const textEnd = text.data() + text.size();
    const auto [end, error] = std::from_chars(text.data(), textEnd, number, 16);
    return error == std::errc{} && end == textEnd ? std::optional{number} : std::nullopt;
}

} // namespace dxf
