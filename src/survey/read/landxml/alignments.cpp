#include "survey/read/landxml/parts.h"

#include "store/text/text.h"
#include "survey/line/alignment_walk.h"
#include "survey/line/elements.h"
#include "survey/read/landxml/geometry.h"

#include <algorithm>

namespace survey::landxml
{

namespace
{

/// Appends an element; a gap before it is told.
void append(Context& context, AlignmentLine& line, AlignmentElement element, const pugi::xml_node& node,
            const std::string& what)
{
    if (!line.elements.empty())
    {
        const double gap = endOf(line.elements.back()).distanceTo(element.start);
        if (gap > kMeetingDistance)
            context.unusable(node, what + ": the element in line " + std::to_string(element.place.line) + " begins " +
                                       std::to_string(gap) + " m from the end of the one before it");
    }
    element.startDistance = lengthOf(line);
    line.elements.push_back(element);
}

void readEquation(Context& context, AlignmentLine& line, const pugi::xml_node& node, const std::string& what)
{
    const auto internal = context.numberOf(node, "staInternal");
    const auto ahead = context.numberOf(node, "staAhead");
    const auto back = internal ? internal : context.numberOf(node, "staBack");
    if (!back || !ahead)
    {
        context.unusable(node, what + ": a station equation lacks staInternal or staAhead");
        return;
    }
    StationEquation equation;
    equation.distance = context.metres(*back) - line.startStation;
    equation.ahead = context.metres(*ahead);
    equation.increasing = attributeOf(node, "staIncrement") != "decreasing";
    equation.place = context.placeOf(node);
    if (equation.distance < -kMeetingDistance || equation.distance > lengthOf(line) + kMeetingDistance)
        context.unusable(node, what + ": a station equation lies outside of the alignment");
    else
        line.equations.push_back(equation);
}

bool hasName(const Survey& survey, const std::u16string& name)
{
    return std::any_of(survey.alignments.begin(), survey.alignments.end(),
                       [&](const AlignmentLine& line) { return equalNoCase(line.name, name); });
}

AlignmentLine alignmentOf(Context& context, const pugi::xml_node& node, const std::string& what)
{
    AlignmentLine line;
    line.name = toUtf16(attributeOf(node, "name"));
    line.startStation = context.metres(context.numberOf(node, "staStart").value_or(0.0));
    line.place = context.placeOf(node);
    for (const pugi::xml_node& child : node)
        if (isNamed(child, "CoordGeom"))
            for (const Piece& piece : readGeometry(context, child, what))
                for (const AlignmentElement& element : piece.elements)
                    append(context, line, element, child, what);
    for (const pugi::xml_node& child : node)
        if (isNamed(child, "StaEquation"))
            readEquation(context, line, child, what);
    std::stable_sort(line.equations.begin(), line.equations.end(),
                     [](const auto& a, const auto& b) { return a.distance < b.distance; });
    return line;
}

void readAlignment(Context& context, const pugi::xml_node& node)
{
    const std::string what = "alignment " + quoted(attributeOf(node, "name"));
    AlignmentLine line = alignmentOf(context, node, what);
    std::vector<AlignmentLine>& alignments = context.survey().alignments;
    if (line.elements.empty())
        context.unusable(node, what + " has no geometry");
    else if (hasName(context.survey(), line.name))
        context.unusable(node, what + ": another one has this name");
    else
    {
        alignments.push_back(std::move(line));
        for (const pugi::xml_node& child : node)
            if (isNamed(child, "CrossSects"))
                readCrossSections(context, child, alignments.size() - 1);
    }
}

} // namespace

void readAlignments(Context& context, const pugi::xml_node& alignments)
{
    for (const pugi::xml_node& node : alignments)
        if (isNamed(node, "Alignment"))
            readAlignment(context, node);
}

} // namespace survey::landxml
