#include "host/drawing/foreign_pairs.h"

#include "host/drawing/foreign_names.h"

#include <charconv>
#include <cmath>

namespace
{

bool within(int code, int first, int last)
{
    return code >= first && code <= last;
}

bool isReal(int code)
{
    return within(code, 10, 59) || within(code, 110, 149) || within(code, 210, 239) || within(code, 460, 469) ||
           within(code, 1010, 1059);
}

bool isInteger(int code)
{
    return within(code, 60, 99) || within(code, 170, 179) || within(code, 270, 289) || within(code, 370, 389) ||
           within(code, 400, 409) || within(code, 420, 429) || within(code, 440, 459) || within(code, 1060, 1071);
}

template <class Number>
bool isWhole(std::string_view text)
{
    Number number{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if constexpr (std::is_floating_point_v<Number>)
        if (!std::isfinite(number))
            return false;
    return error == std::errc{} && end == text.data() + text.size();
}

/// The second line of a pair as a writer makes it.
std::string lastLine(TagWriter& out)
{
    const std::string pair = out.take();
    const size_t begin = pair.find('\n') + 1;
    return pair.substr(begin, pair.size() - begin - 1);
}

} // namespace

std::string ForeignPairs::value(const Tag& tag) const
{
    TagWriter out;
    if (isReal(tag.code) && !isWhole<double>(tag.word()))
    {
        out.real(tag.code, tag.real());
        return lastLine(out);
    }
    if (isInteger(tag.code) && !isWhole<int64_t>(tag.word()))
        return std::to_string(tag.integer());
    if (isTextCode(tag.code))
        return m_target.encoding().encode(m_source.encoding().decode(tag.value));
    return std::string{tag.word()};
}

std::string ForeignPairs::extendedData(std::string_view pairs, std::string_view without) const
{
    constexpr int kReference = 1005;
    constexpr int kLayer = 1003;
    TagWriter out;
    TagReader reader{pairs};
    bool taken = false;
    for (Tag tag; reader.next(tag);)
    {
        if (tag.code == 1001)
        {
            taken = tag.word() != without;
            if (taken)
                m_names.use("APPID", decoded(tag));
        }
        if (!taken)
            continue;
        if (tag.code == kLayer)
            m_names.use("LAYER", decoded(tag));
        out.text(tag.code, tag.code == kReference ? std::string{"0"} : value(tag));
    }
    return out.take();
}
