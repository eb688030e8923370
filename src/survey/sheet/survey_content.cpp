#include "survey/sheet/survey_content.h"

#include "store/text/text.h"
#include "survey/read/finding_list.h"
#include "survey/sheet/earlier_content.h"

#include <algorithm>
#include <array>

namespace survey
{

namespace
{

/// Colours of the layers of coded lines, one after the other; clear on dark and on light ground.
constexpr std::array kLineColors{3, 5, 6, 32, 150, 94, 200, 52, 140, 214, 34, 104};

const std::u16string& codeOf(const CodedLine& line, CodeSource source)
{
    switch (source)
    {
    case CodeSource::kName:
        return line.name;
    case CodeSource::kCoding:
        return line.coding;
    case CodeSource::kDescription:
        break;
    }
    return line.description.empty() ? line.coding : line.description;
}

} // namespace

SurveyContent::SurveyContent(const Survey& survey, const WriteOptions& options, DrawingPen& pen, WriteResult& result)
    : m_survey{survey}, m_options{options}, m_pen{pen}, m_result{result}
{
}

/// What objects of a file remember.
std::u16string SurveyContent::originOf(const Place& place) const
{
    return place.file < m_survey.files.size() ? fileOrigin(m_survey.files[place.file].path) : std::u16string{};
}

const CodeForm& SurveyContent::formOf(const std::u16string& code, const Place& place)
{
    const auto [found, isNew] = m_forms.try_emplace(code);
    if (isNew)
        found->second = {codeForm(code), place, 0};
    ++found->second.count;
    return found->second.form;
}

const std::u16string& SurveyContent::layerOf(const std::u16string& code)
{
    const auto [found, isNew] = m_layers.try_emplace(code);
    if (isNew)
    {
        const int color = code.empty() ? 8 : kLineColors[(m_layers.size() - 1) % kLineColors.size()];
        found->second = m_pen.layer(code.empty() ? u"DIA_VAT" : u"DV_" + code, color);
    }
    return found->second;
}

AcDbObjectIdArray SurveyContent::drawPoint(const Point& point, const AcGePoint3d& at, const std::u16string& layer)
{
    m_pen.mark(originOf(point.place));
    AcDbObjectIdArray ids;
    for (const std::u16string& code : point.codes)
    {
        const CodeForm& form = formOf(code, point.place);
        if (form.text.empty())
            continue;
        ++m_result.pointCodes[form.text];
        ids.push_back(m_pen.surveyPoint(layer, at, form.text, point.name));
    }
    if (ids.empty())
        ids.push_back(m_pen.surveyPoint(layer, at, {}, point.name));
    return ids;
}

void SurveyContent::drawLines()
{
    size_t uncoded = 0;
    Place firstUncoded;
    for (const CodedLine& line : m_survey.lines)
    {
        const CodeForm& form = formOf(codeOf(line, m_options.codeFrom), line.place);
        if (form.text.empty() && uncoded++ == 0)
            firstUncoded = line.place;
        if (!form.text.empty())
            ++m_result.lineCodes[form.text];
        m_pen.mark(originOf(line.place));
        m_pen.codedLine(layerOf(form.text), line.vertices, line.closed, form.stored);
    }
    if (uncoded > 0)
        m_result.findings.push_back({FindingKind::kNote, firstUncoded, firstUncoded.line,
                                     counted(uncoded, "line") + " without a code: no section finds them"});
}

void SurveyContent::tellCodes()
{
    for (const auto& [code, changed] : m_forms)
    {
        if (!changed.form.isChanged && !changed.form.isWide)
            continue;
        std::string text = "the code " + quoted(code) + " (" + counted(changed.count, "time") + ") has ";
        text += changed.form.isWide
                    ? "letters without an 8-bit Vietnamese form: it stands on lines as it is"
                    : "letters that read otherwise on lines: it is written \"" + toUtf8(changed.form.text) + "\"";
        m_result.findings.push_back({FindingKind::kNote, changed.place, changed.place.line, std::move(text)});
    }
}

} // namespace survey
