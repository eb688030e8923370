#include "util/numbers.h"

#include "host/number_text.h"
#include "util/fields.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

namespace
{

/// `text` behind its white space, as far as it can matter to a number.
std::string numberCharacters(std::u16string_view text)
{
    while (!text.empty() && IsSpace(text.front()))
        text.remove_prefix(1);
    const auto plain = [](char16_t unit) { return unit > u' ' && unit < 0x7F; };
    const auto end = std::find_if_not(text.begin(), text.end(), plain);
    return {text.begin(), end};
}

/// The number at the start of `text`; none for one that is too large.
auto leadingReal(std::u16string_view text)
{
    const auto found = host::leadingReal(numberCharacters(text));
    return std::isfinite(found.value) ? found : decltype(found){};
}

} // namespace

bool StartsWithReal(std::u16string_view text)
{
    return leadingReal(text).length > 0;
}

double ToReal(std::u16string_view text)
{
    return leadingReal(text).value;
}

int ToInteger(std::u16string_view text)
{
    using Range = std::numeric_limits<int>;
    const int64_t value = host::leadingInteger(numberCharacters(text)).value;
    return static_cast<int>(std::clamp<int64_t>(value, Range::min(), Range::max()));
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
