#include "kernel/curve/free_curves.h"

#include <algorithm>
#include <cmath>

namespace
{

constexpr int kMostDegree = 25;

bool isFinite(const AcGePoint3d& p)
{
    return std::isfinite(p.x) && std::isfinite(p.y) && std::isfinite(p.z);
}

bool areFinite(const AcGePoint3dArray& points)
{
    return std::all_of(points.begin(), points.end(), isFinite);
}

int chordsPerSpan(std::size_t spans)
{
    return spans <= 1000 ? 64 : std::max(4, static_cast<int>(64000 / spans));
}

bool isUsable(const SplineData& s)
{
    const std::size_t points = s.controlPoints.size();
    return s.degree >= 1 && s.degree <= kMostDegree && points > static_cast<std::size_t>(s.degree) &&
           s.knots.size() == points + static_cast<std::size_t>(s.degree) + 1 &&
           (s.weights.empty() || s.weights.size() == points) && areFinite(s.controlPoints) &&
           std::is_sorted(s.knots.begin(), s.knots.end()) &&
           std::all_of(s.knots.begin(), s.knots.end(), [](double k) { return std::isfinite(k); });
}

/// The point of a spline at parameter `t` in the span of knots that begins at `span`, by de Boor's scheme on weighted
/// points.
AcGePoint3d pointAt(const SplineData& s, std::size_t span, double t)
{
    const std::size_t degree = static_cast<std::size_t>(s.degree);
    AcGeVector3d points[kMostDegree + 1];
    double weights[kMostDegree + 1];
    for (std::size_t i = 0; i <= degree; ++i)
    {
        const std::size_t index = span - degree + i;
        weights[i] = s.weights.empty() ? 1.0 : s.weights[index];
        points[i] = s.controlPoints[index].asVector() * weights[i];
    }
    for (std::size_t level = 1; level <= degree; ++level)
        for (std::size_t i = degree; i >= level; --i)
        {
            const double low = s.knots[span - degree + i];
            const double width = s.knots[span + 1 + i - level] - low;
            const double part = width > 0.0 ? (t - low) / width : 0.0;
            points[i] = points[i - 1] * (1.0 - part) + points[i] * part;
            weights[i] = weights[i - 1] * (1.0 - part) + weights[i] * part;
        }
    return AcGePoint3d::kOrigin + points[degree] / weights[degree];
}

AcGePoint3dArray throughControlPoints(const SplineData& s)
{
    const std::size_t degree = static_cast<std::size_t>(s.degree);
    const int chords = s.degree == 1 ? 1 : chordsPerSpan(s.controlPoints.size() - degree);
    AcGePoint3dArray points;
    for (std::size_t span = degree; span < s.controlPoints.size(); ++span)
    {
        const double low = s.knots[span];
        const double high = s.knots[span + 1];
        if (!(high > low))
            continue;
        if (points.empty())
            points.push_back(pointAt(s, span, low));
        for (int i = 1; i <= chords; ++i)
            points.push_back(pointAt(s, span, i < chords ? low + (high - low) * i / chords : high));
    }
    return areFinite(points) ? points : AcGePoint3dArray{};
}

/// The parameter of each fit point: the way along the chords, by which a curve through uneven points swings least.
std::vector<double> chordParameters(const AcGePoint3dArray& points)
{
    std::vector<double> parameters{0.0};
    for (std::size_t i = 1; i < points.size(); ++i)
        parameters.push_back(parameters.back() + points[i].distanceTo(points[i - 1]));
    return parameters;
}

/// Slopes of the curve with continuous curvature through the points, its ends free of curvature (the natural spline):
/// one sweep down and one up through the three-banded equations.
std::vector<AcGeVector3d> naturalSlopes(const AcGePoint3dArray& points, const std::vector<double>& at)
{
    const std::size_t last = points.size() - 1;
    std::vector<double> upper(points.size(), 0.5);
    std::vector<AcGeVector3d> slopes(points.size());
    const auto chord = [&](std::size_t i) { return (points[i + 1] - points[i]) / (at[i + 1] - at[i]); };
    slopes[0] = chord(0) * 1.5;
    for (std::size_t i = 1; i <= last; ++i)
    {
        const double before = at[i] - at[i - 1];
        const double after = i < last ? at[i + 1] - at[i] : 0.0;
        // Weights of the slopes before, at and after this point, and what they sum up to.
        const double low = i < last ? after : 1.0;
        const double middle = i < last ? 2.0 * (before + after) : 2.0;
        const double high = i < last ? before : 0.0;
        const AcGeVector3d sum = i < last ? (chord(i - 1) * after + chord(i) * before) * 3.0 : chord(i - 1) * 3.0;
        const double pivot = middle - low * upper[i - 1];
        upper[i] = high / pivot;
        slopes[i] = (sum - slopes[i - 1] * low) / pivot;
    }
    for (std::size_t i = last; i-- > 0;)
        slopes[i] -= slopes[i + 1] * upper[i];
    return slopes;
}

/// The points of a cubic between two fit points `width` apart, from their places and slopes.
AcGePoint3d onCubic(const AcGePoint3d& from, const AcGePoint3d& to, const AcGeVector3d& slopeFrom,
                    const AcGeVector3d& slopeTo, double width, double part)
{
    const double rest = 1.0 - part;
    return from + (to - from) * (part * part * (3.0 - 2.0 * part)) +
           (slopeFrom * rest - slopeTo * part) * (width * part * rest);
}

AcGePoint3dArray throughFitPoints(AcGePoint3dArray fit, bool closed)
{
    if (closed && fit.size() > 2)
        fit.push_back(fit.front());
    fit.erase(
        std::unique(fit.begin(), fit.end(), [](const AcGePoint3d& p, const AcGePoint3d& q) { return p.isEqualTo(q); }),
        fit.end());
    if (fit.size() < 3 || !areFinite(fit))
        return areFinite(fit) ? fit : AcGePoint3dArray{};
    const std::vector<double> at = chordParameters(fit);
    const std::vector<AcGeVector3d> slopes = naturalSlopes(fit, at);
    const int chords = chordsPerSpan(fit.size() - 1);
    AcGePoint3dArray points{fit.front()};
    for (std::size_t i = 0; i + 1 < fit.size(); ++i)
        for (int k = 1; k <= chords; ++k)
            points.push_back(onCubic(fit[i], fit[i + 1], slopes[i], slopes[i + 1], at[i + 1] - at[i],
                                     static_cast<double>(k) / chords));
    return points;
}

} // namespace

CurvePath splinePath(const SplineData& spline)
{
    return CurvePath::space(isUsable(spline) ? throughControlPoints(spline)
                                             : throughFitPoints(spline.fitPoints, spline.closed));
}
