#include "survey/read/drawing/drawing_view.h"

#include "host/db/curve/entity_curves.h"
#include "survey/line/alignment_walk.h"
#include "survey/line/elements.h"

#include <algorithm>
#include <cmath>
#include <list>

namespace survey
{

namespace
{

/// A curve of a drawing as elements of an alignment.
using Elements = std::vector<AlignmentElement>;

/// An arc by the tangent of a quarter of its sweep, positive to the left.
AlignmentElement arcByBulge(const AcGePoint2d& from, const AcGePoint2d& to, double bulge)
{
    const AcGeVector2d chord = to - from;
    const double rise = (1.0 / bulge - bulge) / 4.0;
    const AcGePoint2d centre = from + chord * 0.5 + chord.perpVector() * rise;
    return arcElement(from, centre, to, bulge < 0.0);
}

AlignmentElement elementOf(const DrawingView& drawing, const PathVertex& from, const PathVertex& to)
{
    const AcGePoint3d start = drawing.metres(AcGePoint3d{from.x, from.y, 0.0});
    const AcGePoint3d end = drawing.metres(AcGePoint3d{to.x, to.y, 0.0});
    const AcGePoint2d a{start.x, start.y};
    const AcGePoint2d b{end.x, end.y};
    constexpr double kStraight = 1e-12;
    return std::fabs(from.bulge) < kStraight ? straightElement(a, b) : arcByBulge(a, b, from.bulge);
}

Elements elementsOf(const DrawingView& drawing, CurvePath path, const Place& place)
{
    constexpr double kDeviation = 0.001;
    if (!path.isLevel() && path.isPlane())
        path = CurvePath::space(path.flatten(kDeviation), false);
    Elements elements;
    for (size_t i = 0; i < path.segmentCount(); ++i)
    {
        AlignmentElement element = elementOf(drawing, path.segmentStart(i), path.segmentEnd(i));
        element.place = place;
        if (element.length > 0.0)
            elements.push_back(element);
    }
    return elements;
}

Elements reversed(const Elements& elements)
{
    Elements result;
    for (auto each = elements.rbegin(); each != elements.rend(); ++each)
    {
        AlignmentElement element = *each;
        element.start = endOf(*each);
        element.direction = directionOn(*each, each->length) + std::acos(-1.0);
        element.startCurvature = -each->endCurvature;
        element.endCurvature = -each->startCurvature;
        result.push_back(element);
    }
    return result;
}

/// Appends `other` to a chain that it meets, turned round where need be. False when it does not.
bool join(Elements& chain, const Elements& other)
{
    const auto meets = [](const AcGePoint2d& a, const AcGePoint2d& b) { return a.distanceTo(b) < kMeetingDistance; };
    const AcGePoint2d begin = chain.front().start;
    const AcGePoint2d end = endOf(chain.back());
    const bool fromStart = meets(end, other.front().start) || meets(begin, endOf(other.back()));
    const Elements next = fromStart ? other : reversed(other);
    if (meets(end, next.front().start))
        chain.insert(chain.end(), next.begin(), next.end());
    else if (meets(begin, endOf(next.back())))
        chain.insert(chain.begin(), next.begin(), next.end());
    else
        return false;
    return true;
}

/// Curves that meet at their ends become one; it runs as the first of them does.
std::vector<Elements> chainsOf(std::list<Elements> pieces)
{
    std::vector<Elements> chains;
    while (!pieces.empty())
    {
        Elements chain = std::move(pieces.front());
        pieces.pop_front();
        for (auto piece = pieces.begin(); piece != pieces.end();)
            if (join(chain, *piece))
            {
                pieces.erase(piece);
                piece = pieces.begin();
            }
            else
                ++piece;
        chains.push_back(std::move(chain));
    }
    return chains;
}

AlignmentLine lineOf(const Elements& elements, std::u16string name, double startStation)
{
    AlignmentLine line;
    line.name = std::move(name);
    line.startStation = startStation;
    line.place = elements.front().place;
    for (AlignmentElement element : elements)
    {
        element.startDistance = lengthOf(line);
        line.elements.push_back(element);
    }
    return line;
}

} // namespace

void readDrawingAlignments(DrawingView& drawing, const DrawingOptions& what)
{
    if (what.alignmentLayer.empty())
        return;
    std::list<Elements> pieces;
    for (const Entity& entity : drawing.entities())
        if (equalNoCase(entity.layer, what.alignmentLayer) && entity.kind != "INSERT")
            for (const CurvePath& path : drawing.readOf(entity, [&] { return curvesOfEntity(*entity.record); }))
                if (Elements elements = elementsOf(drawing, path, drawing.placeOf(*entity.record)); !elements.empty())
                    pieces.push_back(std::move(elements));
    const std::vector<Elements> chains = chainsOf(std::move(pieces));
    if (chains.empty())
        drawing.findings().unusable(0, "there is no line on the layer " + quoted(what.alignmentLayer) +
                                           " that could be an alignment");
    for (size_t i = 0; i < chains.size(); ++i)
    {
        const std::u16string number = chains.size() == 1 ? u"" : u" " + toUtf16(std::to_string(i + 1));
        drawing.survey().alignments.push_back(lineOf(chains[i], what.alignmentLayer + number, what.startStation));
    }
}

} // namespace survey
