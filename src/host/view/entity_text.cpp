#include "host/view/entity_text.h"

#include "host/db/database.h"
#include "store/tags.h"
#include "store/text/text.h"

#include <algorithm>
#include <cstring>

namespace
{

constexpr int kFirstSubclassData = 100;
constexpr int kApplication = 1001;

/// The first pair of a code among the codes every entity has, which end with the second subclass marker.
bool findCommon(const ObjectRecord& entity, int code, Tag& tag)
{
    TagReader reader{entity.view()};
    for (int markers = 0; markers < 2 && reader.next(tag);)
    {
        if (tag.code == code)
            return true;
        markers += tag.code == kFirstSubclassData ? 1 : 0;
    }
    return false;
}

/// As the view's own `find`, which would stop at every "1" of every coordinate.
size_t findText(std::string_view text, std::string_view what, size_t from)
{
    const void* found = ::memmem(text.data() + from, text.size() - from, what.data(), what.size());
    return found != nullptr ? static_cast<size_t>(static_cast<const char*>(found) - text.data())
                            : std::string_view::npos;
}

bool isBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\r';
}

/// Whether the bytes from `at` on of the text stand alone on their line; `begin` receives the line's begin.
bool isWholeLine(std::string_view text, size_t at, size_t length, size_t& begin)
{
    begin = at;
    while (begin > 0 && isBlank(text[begin - 1]))
        --begin;
    size_t end = at + length;
    while (end < text.size() && isBlank(text[end]))
        ++end;
    return (begin == 0 || text[begin - 1] == '\n') && end < text.size() && text[end] == '\n';
}

size_t countLines(std::string_view text)
{
    const auto ends = static_cast<size_t>(std::count(text.begin(), text.end(), '\n'));
    return !text.empty() && text.back() != '\n' ? ends + 1 : ends;
}

/// The entity's pairs from its first 1001 on. The text is searched, not walked: extended data stands at its end, and a
/// line "1001" is a group code when an even number of lines remains from it on.
std::string_view extendedData(std::string_view text)
{
    constexpr std::string_view kCode = "1001";
    size_t begin = 0;
    for (size_t at = findText(text, kCode, 0); at != std::string_view::npos; at = findText(text, kCode, at + 1))
        if (isWholeLine(text, at, kCode.size(), begin) && countLines(text.substr(begin)) % 2 == 0)
            return text.substr(begin);
    return {};
}

} // namespace

std::string_view rawLayerOf(const ObjectRecord& entity)
{
    Tag tag;
    return findCommon(entity, 8, tag) ? tag.word() : std::string_view{"0"};
}

std::u16string layerOf(const ObjectRecord& entity)
{
    return entity.database->encoding().decode(rawLayerOf(entity));
}

bool hasApplication(const ObjectRecord& entity, const std::vector<std::u16string>& names)
{
    TagReader reader{extendedData(entity.view())};
    for (Tag tag; reader.next(tag);)
    {
        if (tag.code != kApplication)
            continue;
        const std::u16string name = entity.database->encoding().decode(tag.word());
        if (std::any_of(names.begin(), names.end(), [&name](const auto& each) { return equalNoCase(each, name); }))
            return true;
    }
    return false;
}

bool isInvisible(const ObjectRecord& entity)
{
    Tag tag;
    return findCommon(entity, 60, tag) && tag.integerOr(0) == 1;
}
