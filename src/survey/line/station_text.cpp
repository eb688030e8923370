#include "survey/line/station_text.h"

#include "store/numbers.h"

#include <cmath>
#include <string>

namespace survey
{

namespace
{

std::optional<double> number(std::string_view text)
{
    std::string withPoint{text};
    if (const size_t comma = withPoint.find(','); comma != withPoint.npos && withPoint.find('.') == withPoint.npos)
        withPoint[comma] = '.';
    return dxf::readReal(withPoint);
}

/// Takes "(2)" off the end.
size_t takeRegion(std::string_view& text)
{
    const size_t open = text.rfind('(');
    if (open == text.npos || !text.ends_with(')'))
        return 0;
    const auto region = dxf::readInteger(text.substr(open + 1, text.size() - open - 2));
    if (!region || *region < 1)
        return 0;
    text = dxf::withoutBlanks(text.substr(0, open));
    return static_cast<size_t>(*region);
}

/// Takes "Km", in any case, off the beginning.
bool takeKilometreMark(std::string_view& text)
{
    const bool isMarked = text.size() > 2 && (text[0] | 0x20) == 'k' && (text[1] | 0x20) == 'm';
    if (isMarked)
        text = dxf::withoutBlanks(text.substr(2));
    return isMarked;
}

} // namespace

std::optional<WrittenStation> readStation(std::string_view text)
{
    text = dxf::withoutBlanks(text);
    WrittenStation station;
    station.region = takeRegion(text);
    const bool isNegative = text.starts_with("-Km") || text.starts_with("-km");
    if (isNegative)
        text.remove_prefix(1);
    const bool isMarked = takeKilometreMark(text);
    constexpr double kKilometre = 1000.0;
    const size_t plus = text.find('+', 1);
    const auto first = number(text.substr(0, plus));
    if (!first)
        return std::nullopt;
    station.value = *first * (isMarked || plus != text.npos ? kKilometre : 1.0);
    if (plus != text.npos)
    {
        const auto metres = number(text.substr(plus + 1));
        if (!metres || *metres < 0.0)
            return std::nullopt;
        station.value += std::copysign(*metres, std::signbit(*first) ? -1.0 : 1.0);
    }
    station.value = isNegative ? -station.value : station.value;
    return station;
}

} // namespace survey
