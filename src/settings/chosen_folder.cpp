#include "settings/chosen_folder.h"

#include "util/fields.h"

std::u16string FolderOf(std::u16string_view path)
{
    if (path.find(u'\\') == std::u16string_view::npos)
        return std::u16string{path.substr(0, path.rfind(u'/') + 1)};
    std::vector<std::u16string> parts = SplitFields(path, u'\\', EmptyFields::kSkip);
    if (!parts.empty()) // a path can be separators only
        parts.pop_back();
    std::u16string folder;
    for (const std::u16string& part : parts)
        folder += part + u"\\";
    return folder;
}
