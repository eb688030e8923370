#include "survey/read/drawing/read_drawing.h"

#include "disk/error.h"
#include "disk/read.h"
#include "store/text/text.h"
#include "survey/read/codes.h"
#include "survey/read/drawing/drawing_view.h"
#include "survey/read/table/rows.h"
#include "survey/read/utf8_text.h"

#include <algorithm>
#include <array>

namespace survey
{

namespace
{

constexpr std::array<std::pair<std::string_view, PointSource::Kind>, 3> kSources{
    {{"layer", PointSource::kLayer}, {"block", PointSource::kBlock}, {"text", PointSource::kText}}};

std::vector<std::u16string> namesOf(std::string_view list)
{
    std::vector<std::u16string> names;
    while (!list.empty())
    {
        const size_t end = std::min(list.find(','), list.size());
        if (end > 0)
            names.push_back(toUtf16(list.substr(0, end)));
        list.remove_prefix(std::min(end + 1, list.size()));
    }
    return names;
}

} // namespace

void readDrawing(Survey& survey, const std::string& path, AcDbDatabase& drawing, const DrawingOptions& what,
                 const ReadOptions& options)
{
    const auto file = static_cast<uint32_t>(survey.files.size());
    SurveyFile& entry = survey.files.emplace_back();
    entry.path = path;
    entry.format = "drawing";
    entry.units = options.unit.value_or(kMetre).name;
    entry.encoding = drawing.encoding().isUtf8() ? "UTF-8" : drawing.store().codePage;
    DrawingView view{survey, file, drawing, options};
    readDrawingAlignments(view, what);
    readDrawingPoints(view, what);
    readDrawingLines(view, what);
    if (what.alignmentLayer.empty() && what.points.empty() && !what.codeFromLayer)
        view.findings().unusable(0, "nothing says what of the drawing is the survey: --alignment-layer, --points-from "
                                    "or --code-from-layer");
}

std::optional<PointSource> readPointSource(std::string_view text)
{
    const size_t colon = std::min(text.find(':'), text.size());
    for (const auto& [word, kind] : kSources)
        if (text.substr(0, colon) == word)
            return PointSource{kind, namesOf(text.substr(std::min(colon + 1, text.size())))};
    return std::nullopt;
}

std::map<std::u16string, std::u16string, LessNoCase> readLayerCodes(const std::string& path,
                                                                    const std::string& encoding)
{
    const Utf8Text text = utf8Of(disk::readOwnBytes(path), path, encoding);
    std::map<std::u16string, std::u16string, LessNoCase> codes;
    for (const Row& row : readRows(text.text.view()).rows)
    {
        if (row.fields.size() < 2 || row.fields[0].empty())
            throw disk::FileError{path, row.line, "is not a layer and its code"};
        codes[toUtf16(row.fields[0])] = toUtf16(row.fields[1]);
    }
    return codes;
}

} // namespace survey
