#include "survey/read/landxml/geometry.h"

#include "store/text/text.h"
#include "survey/line/elements.h"
#include "survey/read/codes.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <numbers>

namespace survey::landxml
{

namespace
{

/// Shorter is no length: half of the last digit that surveyors give, metres.
constexpr double kNoLength = 0.0005;

/// An element with its ends, while it is read.
struct Ends
{
    const pugi::xml_node& node;
    std::string what; ///< for findings
    Coordinates start;
    Coordinates end;

    double apart() const { return start.plan().distanceTo(end.plan()); }
};

Piece single(Context& context, const Ends& ends, AlignmentElement element)
{
    element.place = context.placeOf(ends.node);
    return {{element}, {ends.start, ends.end}};
}

Piece straight(Context& context, const Ends& ends)
{
    return single(context, ends, straightElement(ends.start.plan(), ends.end.plan()));
}

/// A finding, and a straight line in place of what cannot be.
Piece straightInstead(Context& context, const Ends& ends, const std::string& why)
{
    context.unusable(ends.node, ends.what + " is degenerate: " + why);
    return ends.apart() < kNoLength ? Piece{} : straight(context, ends);
}

/// "cw" or "ccw"; nothing when it says neither.
std::optional<bool> isClockwise(const pugi::xml_node& node)
{
    const std::string_view rotation = attributeOf(node, "rot");
    return rotation == "cw" ? std::optional{true} : rotation == "ccw" ? std::optional{false} : std::nullopt;
}

Piece readLine(Context& context, const Ends& ends)
{
    if (ends.apart() < kNoLength)
    {
        context.unusable(ends.node, ends.what + " has no length");
        return {};
    }
    return straight(context, ends);
}

/// The centre as it stands in the file, else by radius and length.
std::optional<AcGePoint2d> centreOf(Context& context, const Ends& ends, bool clockwise)
{
    if (const auto centre = context.coordinatesOf(childOf(ends.node, "Center"), ends.what + ": its centre"))
        return centre->plan();
    const double radius = context.metres(context.numberOf(ends.node, "radius").value_or(0.0));
    const double length = context.metres(context.numberOf(ends.node, "length").value_or(0.0));
    return arcCentre(ends.start.plan(), ends.end.plan(), radius, clockwise, length > std::numbers::pi * radius);
}

Piece readCurve(Context& context, const Ends& ends)
{
    const auto clockwise = isClockwise(ends.node);
    if (!clockwise)
        return straightInstead(context, ends, "rot says neither \"cw\" nor \"ccw\"");
    const auto centre = centreOf(context, ends, *clockwise);
    if (!centre)
        return straightInstead(context, ends, "it has no centre, nor a radius that fits its ends");
    const double radius = centre->distanceTo(ends.start.plan());
    const double atEnd = centre->distanceTo(ends.end.plan());
    if (radius < kMeetingDistance)
        return straightInstead(context, ends, "its radius is 0");
    constexpr double kSameRadius = 1e-5;
    if (std::fabs(radius - atEnd) > std::max(kMeetingDistance, kSameRadius * radius))
        return straightInstead(context, ends,
                               "its ends lie " + std::to_string(radius) + " and " + std::to_string(atEnd) +
                                   " m from its centre");
    const double length = context.metres(context.numberOf(ends.node, "length").value_or(0.0));
    if (ends.apart() < kNoLength && length < std::numbers::pi * radius)
        return straightInstead(context, ends, "it has no length");
    return single(context, ends, arcElement(ends.start.plan(), *centre, ends.end.plan(), *clockwise));
}

/// 1 over the radius in an attribute, 0 for "INF" and none.
std::optional<double> curvatureOf(Context& context, const Ends& ends, const char* attribute)
{
    const std::u16string text = toUtf16(attributeOf(ends.node, attribute));
    if (text.empty() || startsWithNoCase(text, u"INF"))
        return 0.0;
    const auto radius = context.numberOf(ends.node, attribute);
    if (!radius)
        return std::nullopt;
    return *radius == 0.0 ? 0.0 : 1.0 / context.metres(std::fabs(*radius));
}

Piece readSpiral(Context& context, const Ends& ends)
{
    const auto clockwise = isClockwise(ends.node);
    const double length = context.metres(context.numberOf(ends.node, "length").value_or(0.0));
    const auto first = curvatureOf(context, ends, "radiusStart");
    const auto second = curvatureOf(context, ends, "radiusEnd");
    if (!clockwise || !first || !second || *first == *second)
        return straightInstead(context, ends, "a clothoid needs rot and two radii that differ");
    if (length < kNoLength || ends.apart() < kNoLength)
        return straightInstead(context, ends, "it has no length");
    const double side = *clockwise ? -1.0 : 1.0;
    const AlignmentElement element =
        clothoidElement(ends.start.plan(), ends.end.plan(), length, side * *first, side * *second);
    const double missed = endOf(element).distanceTo(ends.end.plan());
    constexpr double kSameLength = 1e-4;
    if (missed > std::max(kMeetingDistance, kSameLength * length))
        return straightInstead(context, ends,
                               "with its length and radii it would end " + std::to_string(missed) +
                                   " m from where it ends");
    if (const std::string_view type = attributeOf(ends.node, "spiType"); !type.empty() && type != "clothoid")
        context.unusable(ends.node,
                         ends.what + " is a spiral of the kind " + quoted(type) + "; a clothoid stands in its place");
    return single(context, ends, element);
}

/// The places of an irregular line: those of its list, with its start and end where the list has them not.
std::vector<Coordinates> irregularPlaces(Context& context, const Ends& ends)
{
    std::vector<Coordinates> places{ends.start};
    const auto add = [&](const Coordinates& place)
    {
        if (place.plan().distanceTo(places.back().plan()) >= kNoLength)
            places.push_back(place);
    };
    for (const pugi::xml_node& child : ends.node)
        if (isNamed(child, "PntList2D") || isNamed(child, "PntList3D"))
            if (const auto list = context.coordinateList(child))
                std::for_each(list->begin(), list->end(), add);
    add(ends.end);
    return places;
}

Piece straights(Context& context, const pugi::xml_node& node, std::vector<Coordinates> places)
{
    Piece piece;
    for (size_t i = 1; i < places.size(); ++i)
    {
        piece.elements.push_back(straightElement(places[i - 1].plan(), places[i].plan()));
        piece.elements.back().place = context.placeOf(node);
    }
    piece.joints = std::move(places);
    return piece;
}

Piece readIrregularLine(Context& context, const Ends& ends)
{
    Piece piece = straights(context, ends.node, irregularPlaces(context, ends));
    if (piece.elements.empty())
        context.unusable(ends.node, ends.what + " has no length");
    return piece;
}

/// Points by their names.
Piece readChain(Context& context, const pugi::xml_node& node, const std::string& what)
{
    std::vector<Coordinates> places;
    for (const std::u16string& name : splitWords(toUtf16(textOf(node))))
        if (const Point* const point = context.findPoint(toUtf8(name)))
            places.push_back({point->position, point->hasElevation});
        else
            context.unusable(node, what + " refers to the point " + quoted(name) + ", which there is none of");
    return straights(context, node, std::move(places));
}

using Reader = Piece (*)(Context&, const Ends&);

Reader readerOf(const pugi::xml_node& node)
{
    return isNamed(node, "Line")            ? readLine
           : isNamed(node, "Curve")         ? readCurve
           : isNamed(node, "Spiral")        ? readSpiral
           : isNamed(node, "IrregularLine") ? readIrregularLine
                                            : nullptr;
}

Piece readPiece(Context& context, const pugi::xml_node& node, Reader reader, const std::string& what)
{
    const auto start = context.coordinatesOf(childOf(node, "Start"), what + ": its start");
    const auto end = context.coordinatesOf(childOf(node, "End"), what + ": its end");
    if (start && end)
        return reader(context, {node, what, *start, *end});
    if (!childOf(node, "Start") || !childOf(node, "End"))
        context.unusable(node, what + " has no start or no end");
    return {};
}

} // namespace

std::vector<Piece> readGeometry(Context& context, const pugi::xml_node& coordGeom, const std::string& owner)
{
    std::vector<Piece> pieces;
    for (const pugi::xml_node& node : coordGeom)
    {
        const std::string what = owner + ": " + std::string{localName(node.name())};
        Piece piece;
        if (const Reader reader = readerOf(node))
            piece = readPiece(context, node, reader, what);
        else if (isNamed(node, "Chain"))
            piece = readChain(context, node, what);
        else if (node.type() == pugi::node_element && !isNamed(node, "Feature"))
            context.unusable(node, what + " is no known element");
        if (!piece.elements.empty())
            pieces.push_back(std::move(piece));
    }
    return pieces;
}

} // namespace survey::landxml
