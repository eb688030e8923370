#include "sections/survey_info.h"

#include "dbkit/filter_objects.h"
#include "host/companion/alignment.h"
#include "util/document_lock.h"
#include "util/tcvn3.h"
#include "util/text_lines.h"

#include <algorithm>

namespace
{

constexpr char16_t kLastByte = 0xFF;
constexpr int kText = 1000; ///< a string of extended data, no name, bracket or layer

/// The code as the drawing keeps it: the third item of its extended data.
std::u16string storedCode(const AcDbObject& object)
{
    const ResbufPtr data(object.xData(kSurveyApplication));
    const resbuf* item = data.get();
    for (int skipped = 0; item != nullptr && skipped < 2; ++skipped)
        item = item->rbnext;
    if (item == nullptr || item->restype != kText || item->resval.rstring == nullptr)
        return {};
    return item->resval.rstring;
}

/// Whether the 8-bit form of a text is the text itself.
bool isPlain(const std::u16string& text)
{
    return std::all_of(text.begin(), text.end(), [](char16_t unit) { return unit >= u' ' && unit < 0x7F; });
}

bool isWide(const std::u16string& text)
{
    return std::any_of(text.begin(), text.end(), [](char16_t unit) { return unit > kLastByte; });
}

/// The line that a text of bytes makes in a file.
std::string lineOf(const std::u16string& text)
{
    std::string bytes;
    for (const char16_t unit : text)
        bytes += static_cast<char>(unit);
    return bytes + '\n';
}

} // namespace

std::optional<std::u16string> SurveyInfoReader::codeOf(const AcDbObject& object)
{
    std::u16string text = storedCode(object);
    if (text.empty())
        return std::nullopt;
    if (isWide(text))
        return text;
    m_scratch.pass(lineOf(text));
    if (isPlain(text))
        return text;
    const std::vector<std::u16string> lines = DecodeTextLines(lineOf(text));
    return lines.empty() ? text : lines.front();
}

bool ReadSurveyInfo(AcDbObjectId id, std::u16string& text)
{
    text.clear();
    const OpenForWrite lock;
    const AcDbObjectPointer<AcDbObject> object(id);
    if (!object)
        return false;
    std::optional<std::u16string> code = SurveyInfoReader{}.codeOf(*object);
    if (code)
        text = std::move(*code);
    return code.has_value();
}

int FindAlignments(AcDbObjectIdArray& ids, std::vector<std::u16string>& names)
{
    FilterObjects filter;
    filter.AddClass(PlxDbAlignment::desc()->dxfName());
    filter.SelectAll();
    ids = filter.ids();
    names.assign(ids.size(), {});
    for (size_t index = 0; index < ids.size(); ++index)
        if (const AcDbObjectPointer<PlxDbAlignment> alignment(ids[index]); alignment)
            names[index] = alignment->name();
    return static_cast<int>(ids.size());
}
