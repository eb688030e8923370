#include "host/drawing/tags.h"

#include "host/drawing/line_end.h"
#include "store/group_codes.h"

#include <charconv>
#include <cmath>

namespace
{

bool isBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\r';
}

std::string_view trimmed(std::string_view text)
{
    while (!text.empty() && isBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

std::string_view withoutPlus(std::string_view text)
{
    if (!text.empty() && text.front() == '+')
        text.remove_prefix(1);
    return text;
}

/// A group code; -1 for a line that is none.
int parseCode(std::string_view line)
{
    line = withoutPlus(trimmed(line));
    int code = -1;
    const auto [end, error] = std::from_chars(line.data(), line.data() + line.size(), code);
    return error == std::errc{} && end == line.data() + line.size() ? code : -1;
}

} // namespace

double Tag::real() const
{
    const std::string_view text = withoutPlus(trimmed(value));
    double number = 0.0;
    const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error == std::errc::result_out_of_range)
        return text.find("e-") != std::string_view::npos || text.find("E-") != std::string_view::npos ? 0.0 : HUGE_VAL;
    return error == std::errc{} ? number : 0.0;
}

int64_t Tag::integer() const
{
    const std::string_view text = withoutPlus(trimmed(value));
    int64_t number = 0;
    const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc{} ? number : 0;
}

uint64_t Tag::handle() const
{
    const std::string_view text = trimmed(value);
    uint64_t number = 0;
    const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), number, 16);
    return error == std::errc{} && stop == text.data() + text.size() ? number : 0;
}

std::string_view Tag::word() const
{
    return trimmed(value);
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
    AcGePoint3d point{x.real(), 0.0, 0.0};
    if (takeCoordinate(x, dxf::kToSecondCoordinate, point.y))
        takeCoordinate(x, 2 * dxf::kToSecondCoordinate, point.z);
    return point;
}

/// Goes behind the coordinate when it stands next; one that stands farther on is only looked at.
bool TagReader::takeCoordinate(const Tag& x, int step, double& value)
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
            value = tag.real();
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
