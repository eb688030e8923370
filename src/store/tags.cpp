#include "store/tags.h"

#include "store/group_codes.h"
#include "store/line_end.h"
#include "store/numbers.h"

#include <charconv>
#include <cmath>
#include <limits>

namespace
{

/// A group code; -1 for a line that is none.
int parseCode(std::string_view line)
{
    line = dxf::withoutBlanks(line);
    if (line.starts_with('+'))
        line.remove_prefix(1);
    int code = -1;
    const auto [end, error] = std::from_chars(line.data(), line.data() + line.size(), code);
    return error == std::errc{} && end == line.data() + line.size() ? code : -1;
}

} // namespace

double Tag::real() const
{
    const std::optional<double> number = dxf::readReal(value);
    if (!number)
        throw DamagedValue{*this};
    return *number;
}

int64_t Tag::integer() const
{
    constexpr int64_t kFewest16 = std::numeric_limits<int16_t>::min();
    constexpr int64_t kMost16 = std::numeric_limits<uint16_t>::max();
    const std::optional<int64_t> number = dxf::readInteger(value);
    const bool isShort = dxf::kindOf(code) == dxf::ValueKind::Int16;
    const bool fits = !isShort || (number >= kFewest16 && number <= kMost16);
    if (!number || !fits)
        throw DamagedValue{*this};
    return isShort ? static_cast<int16_t>(*number) : *number;
}

int64_t Tag::integerOr(int64_t fallback) const
{
    return dxf::readInteger(value).value_or(fallback);
}

uint64_t Tag::handle() const
{
    return dxf::readHandle(value).value_or(0);
}

std::string_view Tag::word() const
{
    return dxf::withoutBlanks(value);
}

std::string_view TagReader::line()
{
    const char* begin = m_at;
    const char* end = findLineEnd(begin, m_end);
    m_at = end != m_end ? end + 1 : m_end;
    if (end > begin && end[-1] == '\r')
        --end;
    return {begin, static_cast<size_t>(end - begin)};
}

bool TagReader::next(Tag& tag)
{
    if (m_at >= m_end)
        return false;
    tag.begin = m_at;
    tag.code = parseCode(line());
    if (m_at >= m_end && (m_at == tag.begin || m_at[-1] != '\n'))
        return false;
    tag.value = line();
    tag.end = m_at;
    return true;
}

AcGePoint3d TagReader::pointFrom(const Tag& x)
{
    Tag y;
    Tag z;
    const bool hasY = takeCoordinate(x, dxf::kToSecondCoordinate, y);
    const bool hasZ = hasY && takeCoordinate(x, 2 * dxf::kToSecondCoordinate, z);
    return {x.real(), hasY ? y.real() : 0.0, hasZ ? z.real() : 0.0};
}

/// Goes behind the coordinate when it stands next; one that stands farther on is only looked at.
bool TagReader::takeCoordinate(const Tag& x, int step, Tag& found)
{
    const auto endsPoint = [&](int code)
    {
        return code == x.code || code == dxf::kType || code == dxf::kVariable || code == dxf::kEmbeddedObject ||
               code >= dxf::kXString;
    };
    const char* const begin = m_at;
    const char* at = begin;
    for (Tag tag; next(tag); at = m_at)
    {
        if (tag.code == x.code + step)
        {
            found = tag;
            if (at != begin)
                m_at = begin;
            return true;
        }
        if (endsPoint(tag.code))
            break;
    }
    m_at = begin;
    return false;
}

void TagWriter::code(int value)
{
    char buffer[16] = {' ', ' '};
    char* const digits = buffer + (value >= 100 || value < -9 ? 0 : value >= 10 || value < 0 ? 1 : 2);
    char* const end = std::to_chars(digits, buffer + sizeof buffer - 1, value).ptr;
    *end = '\n';
    m_text.append(buffer, static_cast<size_t>(end + 1 - buffer));
}

void TagWriter::text(int group, std::string_view value)
{
    code(group);
    m_text.append(value);
    m_text += '\n';
}

void TagWriter::integer(int group, int64_t value)
{
    char buffer[24];
    const auto [end, error] = std::to_chars(buffer, buffer + sizeof buffer, value);
    text(group, {buffer, static_cast<size_t>(end - buffer)});
}

void TagWriter::real(int group, double value)
{
    constexpr double kLongestAsWhole = 1e5; // from here on the shortest form has an exponent
    if (!std::isfinite(value))
        value = 0.0;
    char buffer[40];
    char* end = nullptr;
    const bool small = std::fabs(value) < kLongestAsWhole && !(value == 0.0 && std::signbit(value));
    if (const int whole = small ? static_cast<int>(value) : 0; small && whole == value)
        end = std::to_chars(buffer, buffer + sizeof buffer, whole).ptr;
    else
        end = std::to_chars(buffer, buffer + sizeof buffer, value).ptr;
    const std::string_view shown{buffer, static_cast<size_t>(end - buffer)};
    code(group);
    m_text.append(shown);
    if (shown.find_first_of(".eE") == std::string_view::npos)
        m_text.append(".0");
    m_text += '\n';
}

void TagWriter::handle(int group, uint64_t value)
{
    char buffer[24];
    char* end = std::to_chars(buffer, buffer + sizeof buffer, value, 16).ptr;
    for (char* at = buffer; at != end; ++at)
        if (*at >= 'a')
            *at = static_cast<char>(*at - 'a' + 'A');
    text(group, {buffer, static_cast<size_t>(end - buffer)});
}

void TagWriter::point(int group, const AcGePoint3d& value)
{
    real(group, value.x);
    real(group + 10, value.y);
    real(group + 20, value.z);
}
