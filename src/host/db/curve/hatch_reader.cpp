#include "host/db/curve/curve_readers.h"

#include "host/db/curve/spline_edge.h"
#include "kernel/curve/free_curves.h"
#include "store/pair_edit.h"

#include <algorithm>
#include <iterator>
#include <numbers>

namespace
{

constexpr int kPolylineLoop = 2;

/// Reads the loops of a hatch. The meaning of a pair hangs on the ones before it, so the pairs are walked in order; a
/// pair that does not fit ends the walk with the loops read so far.
class HatchReader
{
public:
    explicit HatchReader(std::string_view text) : m_pairs{text} {}
    std::vector<HatchLoop> read();
    /// Whether all loops were there, each with all its edges.
    bool isWhole() const { return m_loops == 0; }

private:
    bool step() { return m_more = m_pairs.next(m_tag); }
    /// Takes the pair at hand when it has this code.
    bool take(int code, double& value);
    double real(int code, double fallback = 0.0)
    {
        take(code, fallback);
        return fallback;
    }
    int integer(int code) { return static_cast<int>(real(code)); }
    AcGePoint3d point(int code);
    std::vector<CurvePath>& curves() { return m_read.back().edges; }
    AcGeMatrix3d world() const { return AcGeMatrix3d::planeToWorld(m_normal); }
    void readHead();
    void readLoop();
    void readPolylineLoop();
    bool readEdge();
    void readArc();
    void readEllipse();
    void readSplineEdge();

    OwnPairs m_pairs;
    Tag m_tag;
    bool m_more = true;
    int m_loops = 0; ///< still to come; less than 0 once one was damaged
    double m_elevation = 0.0;
    AcGeVector3d m_normal = AcGeVector3d::kZAxis;
    std::vector<HatchLoop> m_read;
};

bool HatchReader::take(int code, double& value)
{
    if (!m_more || m_tag.code != code)
        return false;
    value = m_tag.real();
    step();
    return true;
}

AcGePoint3d HatchReader::point(int code)
{
    AcGePoint3d at;
    if (!m_more || m_tag.code != code)
        return at;
    at = m_pairs.pointFrom(m_tag);
    step();
    return at;
}

/// Up to and with the number of loops (91).
void HatchReader::readHead()
{
    bool first = true;
    while (step() && m_tag.code != 91)
        if (m_tag.code == 10 && first)
        {
            m_elevation = m_pairs.pointFrom(m_tag).z;
            first = false;
        }
        else if (m_tag.code == 210)
            m_normal = m_pairs.pointFrom(m_tag).asVector();
    m_loops = integer(91);
}

std::vector<HatchLoop> HatchReader::read()
{
    readHead();
    for (; m_loops > 0 && m_more && m_tag.code == 92; --m_loops)
        readLoop();
    return std::move(m_read);
}

void HatchReader::readLoop()
{
    const int kind = integer(92);
    m_read.push_back({kind, {}});
    if ((kind & kPolylineLoop) != 0)
        readPolylineLoop();
    else
    {
        int edges = integer(93);
        for (; edges > 0 && m_more && m_tag.code == 72; --edges)
            if (!readEdge())
                m_loops = 0;
        if (edges != 0)
            m_loops = 0;
    }
    const int sources = integer(97);
    for (int i = 0; i < sources && m_more && m_tag.code == 330; ++i)
        step();
}

void HatchReader::readPolylineLoop()
{
    integer(72);
    const bool closed = integer(73) != 0;
    integer(93);
    std::vector<PathVertex> vertices;
    while (m_more && m_tag.code == 10)
    {
        const AcGePoint3d at = point(10);
        vertices.push_back({at.x, at.y, real(42)});
    }
    curves().push_back(CurvePath::plane(std::move(vertices), closed, m_elevation, m_normal));
}

/// False for an edge of no known kind.
bool HatchReader::readEdge()
{
    constexpr int kLine = 1;
    constexpr int kArc = 2;
    constexpr int kEllipse = 3;
    constexpr int kSpline = 4;
    switch (integer(72))
    {
    case kLine:
    {
        const AcGePoint3d from = point(10);
        const AcGePoint3d to = point(11);
        curves().push_back(CurvePath::plane({{from.x, from.y}, {to.x, to.y}}, false, m_elevation, m_normal));
        return true;
    }
    case kArc:
        readArc();
        return true;
    case kEllipse:
        readEllipse();
        return true;
    case kSpline:
        readSplineEdge();
        return true;
    default:
        return false;
    }
}

void HatchReader::readArc()
{
    AcGePoint3d center = point(10);
    center.z = m_elevation;
    const double radius = real(40);
    const double from = real(50) * std::numbers::pi / 180.0;
    const double to = real(51) * std::numbers::pi / 180.0;
    // A clockwise edge gives its angles clockwise too.
    curves().push_back(integer(73) != 0 ? CurvePath::arc(center, radius, from, to, m_normal)
                                        : CurvePath::arc(center, radius, -to, -from, m_normal));
}

void HatchReader::readEllipse()
{
    AcGePoint3d center = point(10);
    center.z = m_elevation;
    const AcGeVector3d axis = point(11).asVector();
    const double ratio = real(40);
    const double from = real(50) * std::numbers::pi / 180.0;
    const double to = real(51) * std::numbers::pi / 180.0;
    const bool turnsLeft = integer(73) != 0;
    const AcGeMatrix3d toWorld = world();
    curves().push_back(
        ellipse(toWorld * center, toWorld * axis, ratio, turnsLeft ? from : -to, turnsLeft ? to : -from, m_normal));
}

/// A spline edge is the curve of its knots; one whose numbers make no curve is drawn through its control points.
void HatchReader::readSplineEdge()
{
    SplineData spline;
    const AcGeMatrix3d toWorld = world();
    while (m_more && splineEdgePart(m_tag, m_pairs) != SplineEdgePart::kNone)
    {
        if (m_tag.code == 10)
        {
            AcGePoint3d at = m_pairs.pointFrom(m_tag);
            at.z = m_elevation;
            spline.controlPoints.push_back(toWorld * at);
        }
        else if (m_tag.code == 40)
            spline.knots.push_back(m_tag.real());
        else if (m_tag.code == 42)
            spline.weights.push_back(m_tag.real());
        else if (m_tag.code == 94)
            spline.degree = static_cast<int>(std::clamp<int64_t>(m_tag.integer(), 0, 100));
        step();
    }
    CurvePath path = splinePath(spline);
    if (path.isEmpty() && !spline.controlPoints.empty())
        path = CurvePath::space(spline.controlPoints);
    if (!path.isEmpty())
        curves().push_back(std::move(path));
}

} // namespace

std::vector<HatchLoop> readHatchLoops(std::string_view pairs)
{
    return HatchReader{pairs}.read();
}

std::vector<CurvePath> readHatchBoundary(std::string_view pairs)
{
    std::vector<CurvePath> curves;
    for (HatchLoop& loop : readHatchLoops(pairs))
        std::move(loop.edges.begin(), loop.edges.end(), std::back_inserter(curves));
    return curves;
}

bool isWholeHatch(std::string_view pairs)
{
    HatchReader reader{pairs};
    reader.read();
    return reader.isWhole();
}
