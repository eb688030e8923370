#include "host/app/host_command.h"

#include "host/app/session.h"
#include "store/text/text.h"

#include <charconv>
#include <cmath>
#include <optional>

namespace
{

/// A command or option without the marks that may stand before it: "_" for its name in every language, "." for the
/// host's own, "'" for one within another.
std::u16string_view bare(std::u16string_view word)
{
    const size_t begin = word.find_first_not_of(u"_.'");
    return begin != std::u16string_view::npos ? word.substr(begin) : std::u16string_view{};
}

std::optional<double> numberIn(std::string_view text)
{
    double number = 0.0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    const bool whole = error == std::errc{} && end == text.data() + text.size() && std::isfinite(number);
    return whole ? std::optional{number} : std::nullopt;
}

/// A point typed as "x,y"; a third coordinate is allowed and without effect.
std::optional<AcGePoint2d> pointIn(std::u16string_view word)
{
    const std::string text = toUtf8(word);
    const size_t comma = text.find(',');
    if (comma == std::string::npos)
        return std::nullopt;
    const size_t second = text.find(',', comma + 1);
    const auto x = numberIn(std::string_view{text}.substr(0, comma));
    const auto y =
        numberIn(std::string_view{text}.substr(comma + 1, second == std::string::npos ? second : second - comma - 1));
    return x && y ? std::optional<AcGePoint2d>{std::in_place, *x, *y} : std::nullopt;
}

bool zoom(View& view, const std::vector<std::u16string>& words)
{
    if (words.size() == 2 && (equalNoCase(bare(words[1]), u"e") || equalNoCase(bare(words[1]), u"extents")))
        view.zoomExtents();
    else if (words.size() == 2 && (equalNoCase(bare(words[1]), u"p") || equalNoCase(bare(words[1]), u"previous")))
        view.zoomPrevious();
    else if (words.size() == 3 && pointIn(words[1]) && pointIn(words[2]))
        view.zoomWindow(*pointIn(words[1]), *pointIn(words[2]));
    else
        return false;
    return true;
}

} // namespace

bool runHostCommand(const std::vector<std::u16string>& words)
{
    AcApDocument* document = acDocManagerPtr() != nullptr ? acDocManagerPtr()->curDocument() : nullptr;
    if (document == nullptr || words.empty() || !equalNoCase(bare(words.front()), u"zoom") ||
        !zoom(document->view(), words))
        return false;
    host::Session::current().frontEnd().drawingChanged();
    return true;
}
