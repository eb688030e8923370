#include "host/db/insert/foreign_pairs.h"

#include "host/db/insert/foreign_names.h"
#include "store/group_codes.h"

#include <charconv>

namespace
{

/// Whether the text is a number as every reader knows it, without the forms that only ours takes.
template <class Number>
bool isPlain(std::string_view text)
{
    Number number{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
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
    if (dxf::isReal(tag.code))
    {
        const double number = tag.real();
        if (isPlain<double>(tag.word()))
            return std::string{tag.word()};
        out.real(tag.code, number);
        return lastLine(out);
    }
    if (dxf::isInteger(tag.code))
    {
        const int64_t number = tag.integer();
        return isPlain<int64_t>(tag.word()) ? std::string{tag.word()} : std::to_string(number);
    }
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
