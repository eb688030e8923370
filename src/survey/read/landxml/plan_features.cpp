#include "survey/read/landxml/parts.h"

#include "store/text/text.h"
#include "survey/line/elements.h"
#include "survey/read/landxml/geometry.h"
#include "survey/read/line_ends.h"

namespace survey::landxml
{

namespace
{

/// Curves of plan features become chords that leave them by no more than this, metres.
constexpr double kDeviation = 0.01;

/// The vertices of an element behind its first; elevations rise evenly along it.
void addChords(AcGePoint3dArray& vertices, const AlignmentElement& element, const Coordinates& from,
               const Coordinates& to)
{
    for (const double at : chordEnds(element, kDeviation))
    {
        const AcGePoint2d place = pointOn(element, at);
        vertices.emplace_back(place.x, place.y, from.point.z + (to.point.z - from.point.z) * at / element.length);
    }
    vertices.back() = to.point;
}

void addPiece(CodedLine& line, const Piece& piece)
{
    if (line.vertices.empty())
        line.vertices.push_back(piece.joints.front().point);
    for (size_t i = 0; i < piece.elements.size(); ++i)
        addChords(line.vertices, piece.elements[i], piece.joints[i], piece.joints[i + 1]);
    for (const Coordinates& joint : piece.joints)
        line.hasElevations = line.hasElevations && joint.hasElevation;
}

bool meets(const CodedLine& line, const Piece& piece)
{
    const AcGePoint3d& end = line.vertices.back();
    return AcGePoint2d{end.x, end.y}.distanceTo(piece.joints.front().plan()) < kMeetingDistance;
}

/// What a CoordGeom says it is, else what its feature says.
CodedLine emptyLine(Context& context, const pugi::xml_node& feature, const pugi::xml_node& coordGeom)
{
    const Coding outer = codingOf(feature);
    Coding inner = codingOf(coordGeom);
    CodedLine line;
    line.name = toUtf16(attributeOf(attributeOf(coordGeom, "name").empty() ? feature : coordGeom, "name"));
    line.description = inner.description.empty() ? outer.description : std::move(inner.description);
    line.coding = inner.coding.empty() ? outer.coding : std::move(inner.coding);
    line.place = context.placeOf(coordGeom);
    return line;
}

void readGeometryOf(Context& context, const pugi::xml_node& feature, const pugi::xml_node& coordGeom)
{
    const std::string what = "plan feature " + quoted(attributeOf(feature, "name"));
    const CodedLine empty = emptyLine(context, feature, coordGeom);
    CodedLine line = empty;
    const auto finish = [&]
    {
        if (!line.vertices.empty() && !addLine(context.survey(), std::move(line)))
            context.unusable(coordGeom, what + " has no length");
        line = empty;
    };
    for (const Piece& piece : readGeometry(context, coordGeom, what))
    {
        if (!line.vertices.empty() && !meets(line, piece))
            finish();
        addPiece(line, piece);
    }
    finish();
}

/// A feature that is a place: a point with the feature's code.
void readLocation(Context& context, const pugi::xml_node& feature, const pugi::xml_node& location)
{
    const auto place = context.coordinatesOf(location, "plan feature " + quoted(attributeOf(feature, "name")));
    if (!place)
        return;
    const Coding coding = codingOf(feature);
    Point& point = context.survey().points.emplace_back();
    point.name = toUtf16(attributeOf(feature, "name"));
    const std::u16string& code = coding.coding.empty() ? coding.description : coding.coding;
    if (!code.empty())
        point.codes.push_back(code);
    point.position = place->point;
    point.hasElevation = place->hasElevation;
    point.place = context.placeOf(location);
}

} // namespace

void readPlanFeatures(Context& context, const pugi::xml_node& planFeatures)
{
    for (const pugi::xml_node& feature : planFeatures)
    {
        if (!isNamed(feature, "PlanFeature"))
            continue;
        for (const pugi::xml_node& child : feature)
            if (isNamed(child, "CoordGeom"))
                readGeometryOf(context, feature, child);
            else if (isNamed(child, "Location"))
                readLocation(context, feature, child);
    }
}

} // namespace survey::landxml
