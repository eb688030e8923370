#pragma once

#include "survey/sheet/code_form.h"
#include "survey/sheet/drawing_pen.h"
#include "survey/sheet/section_points.h"

namespace survey
{

/// Puts the points and lines of a survey into a drawing, under codes that both give back alike, and tells what had to
/// be changed in codes.
class SurveyContent
{
public:
    SurveyContent(const Survey& survey, const WriteOptions& options, DrawingPen& pen, WriteResult& result);

    /// A survey point for each of the point's codes, one without a code for a point that has none.
    AcDbObjectIdArray drawPoint(const Point& point, const AcGePoint3d& at, const std::u16string& layer);
    void drawLines();
    /// Adds what is to be told of codes to the result's findings; at the end.
    void tellCodes();

private:
    /// A code whose form is not what was given, and where it first stood.
    struct ChangedCode
    {
        CodeForm form;
        Place place;
        size_t count = 0;
    };

    std::u16string originOf(const Place& place) const;
    const CodeForm& formOf(const std::u16string& code, const Place& place);
    const std::u16string& layerOf(const std::u16string& code);

    const Survey& m_survey;
    const WriteOptions& m_options;
    DrawingPen& m_pen;
    WriteResult& m_result;
    std::map<std::u16string, ChangedCode> m_forms; ///< by the code as it was given
    std::map<std::u16string, std::u16string> m_layers;
};

} // namespace survey
