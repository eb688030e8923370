#include "host/drawing/foreign_pairs.h"

#include "host/drawing/foreign_names.h"
#include "store/group_codes.h"

#include <charconv>
#include <cmath>

namespace
{

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
    if (dxf::isReal(tag.code) && !isWhole<double>(tag.word()))
    {
        out.real(tag.code, tag.real());
        return lastLine(out);
    }
    if (dxf::isInteger(tag.code) && !isWhole<int64_t>(tag.word()))
        return std::to_string(tag.integer());
    if (dxf::isText(tag.code))
        return m_target.encoding().encode(m_source.encoding().decode(tag.value));
    return std::string{tag.word()};
}

std::string ForeignPairs::extendedData(std::string_view pairs, std::string_view without) const
{
    TagWriter out;
    TagReader reader{pairs};
    bool taken = false;
    for (Tag tag; reader.next(tag);)
    {
        if (tag.code == dxf::kXApplication)
        {
            taken = tag.word() != without;
            if (taken)
                out.text(tag.code, m_names.use("APPID", decoded(tag)));
        }
        else if (taken && tag.code == dxf::kXLayer)
            out.text(tag.code, m_names.use("LAYER", decoded(tag)));
        else if (taken)
            out.text(tag.code, tag.code == dxf::kXReference ? std::string{"0"} : value(tag));
    }
    return out.take();
}
