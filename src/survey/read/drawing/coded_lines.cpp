#include "survey/read/drawing/drawing_view.h"

#include "host/db/curve/entity_curves.h"
#include "survey/read/line_ends.h"

#include <algorithm>
#include <array>

namespace survey
{

namespace
{

/// Curves become chords that leave them by no more than this, metres.
constexpr double kDeviation = 0.01;

bool isLine(std::string_view kind)
{
    constexpr std::array<std::string_view, 7> kKinds{"LINE",   "LWPOLYLINE", "POLYLINE", "ARC",
                                                     "CIRCLE", "ELLIPSE",    "SPLINE"};
    return std::find(kKinds.begin(), kKinds.end(), kind) != kKinds.end();
}

/// The code of a layer; none when its lines are not taken.
std::u16string codeOf(const DrawingOptions& what, const std::u16string& layer)
{
    if (equalNoCase(layer, what.alignmentLayer))
        return {};
    if (what.layerCodes.empty())
        return layer;
    const auto found = what.layerCodes.find(layer);
    return found == what.layerCodes.end() ? std::u16string{} : found->second;
}

CodedLine lineOf(const DrawingView& drawing, const Entity& entity, const CurvePath& path, const std::u16string& code)
{
    CodedLine line;
    line.name = line.description = line.coding = code;
    line.place = drawing.placeOf(*entity.record);
    for (const AcGePoint3d& point : path.flatten(kDeviation / drawing.metres(1.0)))
        line.vertices.push_back(drawing.metres(point));
    line.hasElevations =
        std::any_of(line.vertices.begin(), line.vertices.end(), [](const auto& p) { return p.z != 0.0; });
    line.isBreakLine = line.hasElevations && !path.hasArcs();
    return line;
}

} // namespace

void readDrawingLines(DrawingView& drawing, const DrawingOptions& what)
{
    if (!what.codeFromLayer)
        return;
    for (const Entity& entity : drawing.entities())
    {
        const std::u16string code = isLine(entity.kind) ? codeOf(what, entity.layer) : std::u16string{};
        if (code.empty())
            continue;
        for (const CurvePath& path : drawing.readOf(entity, [&] { return curvesOfEntity(*entity.record); }))
            if (!addLine(drawing.survey(), lineOf(drawing, entity, path, code)))
                drawing.findings().unusable(drawing.placeOf(*entity.record).line,
                                            std::string{entity.kind} + " on layer " + quoted(entity.layer) +
                                                " has no length");
    }
}

} // namespace survey
