#include "survey/read_survey.h"

#include "disk/error.h"
#include "disk/read.h"
#include "survey/read/compare_extents.h"
#include "survey/read/finding_list.h"
#include "survey/read/landxml/read_landxml.h"
#include "survey/read/place_sections.h"
#include "survey/read/table/read_table.h"
#include "survey/read/xml_document.h"

#include <algorithm>
#include <utility>

namespace survey
{

namespace
{

bool isXmlName(std::string_view path)
{
    return path.ends_with(".xml") || path.ends_with(".XML");
}

void readBytes(Survey& survey, uint32_t file, disk::OwnBytes bytes, const ReadOptions& options)
{
    if (isXml(bytes.view()))
        readLandXml(survey, file, std::move(bytes), options);
    else if (isXmlName(survey.files[file].path))
        FindingList{survey, file}.unusable(1, "is not XML: it does not begin with \"<\"");
    else
        readTable(survey, file, std::move(bytes), options);
}

} // namespace

void readSurveyFile(Survey& survey, const std::string& path, const ReadOptions& options)
{
    disk::OwnBytes bytes = disk::readOwnBytes(path);
    const auto file = static_cast<uint32_t>(survey.files.size());
    survey.files.emplace_back().path = path;
    try
    {
        readBytes(survey, file, std::move(bytes), options);
    }
    catch (const disk::FileError& error)
    {
        FindingList{survey, file}.unusable(static_cast<uint32_t>(error.line()), error.reason());
    }
}

void finishSurvey(Survey& survey, const std::u16string& alignment)
{
    measureExtents(survey);
    compareExtents(survey);
    placeSections(survey, alignment);
    std::stable_sort(survey.findings.begin(), survey.findings.end(),
                     [](const Finding& a, const Finding& b) {
                         return std::pair{a.first.file, a.first.line} < std::pair{b.first.file, b.first.line};
                     });
}

} // namespace survey
