#include "host/drawing/curve_readers.h"

#include "host/drawing/pair_edit.h"

#include <algorithm>
#include <array>

namespace
{

constexpr size_t kChordsPerSpan = 24;
constexpr size_t kMostChords = 20'000;
constexpr size_t kHighestDegree = 25;

struct Spline
{
    size_t degree = 3;
    bool closed = false;
    std::vector<double> knots;
    std::vector<double> weights;
    AcGePoint3dArray controls;
    AcGePoint3dArray fits;
};

Spline readValues(std::string_view text)
{
    Spline spline;
    OwnPairs pairs{text};
    for (Tag tag; pairs.next(tag);)
        switch (tag.code)
        {
        case 70:
            spline.closed = (tag.integer() & 1) != 0;
            break;
        case 71:
            spline.degree = static_cast<size_t>(std::clamp<int64_t>(tag.integer(), 0, kHighestDegree + 1));
            break;
        case 40:
            spline.knots.push_back(tag.real());
            break;
        case 41:
            spline.weights.push_back(tag.real());
            break;
        case 10:
            spline.controls.push_back(pairs.pointFrom(tag));
            break;
        case 11:
            spline.fits.push_back(pairs.pointFrom(tag));
            break;
        default:
            break;
        }
    return spline;
}

bool isEvaluable(const Spline& spline)
{
    return spline.degree >= 1 && spline.degree <= kHighestDegree && spline.controls.size() > spline.degree &&
           spline.knots.size() == spline.controls.size() + spline.degree + 1 &&
           std::is_sorted(spline.knots.begin(), spline.knots.end()) &&
           (spline.weights.empty() || spline.weights.size() == spline.controls.size());
}

/// The point at `parameter`, which lies in the span that starts at knot `span` (de Boor, homogeneous coordinates).
AcGePoint3d evaluate(const Spline& spline, size_t span, double parameter)
{
    std::array<std::array<double, 4>, kHighestDegree + 1> d{};
    const size_t degree = spline.degree;
    for (size_t i = 0; i <= degree; ++i)
    {
        const size_t control = span - degree + i;
        const AcGePoint3d& p = spline.controls[control];
        const double w = spline.weights.empty() ? 1.0 : spline.weights[control];
        d[i] = {p.x * w, p.y * w, p.z * w, w};
    }
    for (size_t level = 1; level <= degree; ++level)
        for (size_t i = degree; i >= level; --i)
        {
            const double low = spline.knots[span - degree + i];
            const double width = spline.knots[span + 1 + i - level] - low;
            const double share = width > 0.0 ? (parameter - low) / width : 0.0;
            for (size_t k = 0; k < 4; ++k)
                d[i][k] = d[i - 1][k] * (1.0 - share) + d[i][k] * share;
        }
    const std::array<double, 4>& r = d[degree];
    return {r[0] / r[3], r[1] / r[3], r[2] / r[3]};
}

AcGePoint3dArray chords(const Spline& spline)
{
    AcGePoint3dArray points;
    const size_t spans = spline.controls.size() - spline.degree;
    const size_t each = std::clamp<size_t>(kMostChords / spans, 1, spline.degree == 1 ? 1 : kChordsPerSpan);
    for (size_t span = spline.degree; span < spline.controls.size(); ++span)
    {
        const double from = spline.knots[span];
        const double to = spline.knots[span + 1];
        if (!(to > from))
            continue;
        if (points.empty())
            points.push_back(evaluate(spline, span, from));
        for (size_t i = 1; i <= each; ++i)
            points.push_back(
                evaluate(spline, span, from + (to - from) * static_cast<double>(i) / static_cast<double>(each)));
    }
    return points;
}

} // namespace

std::vector<CurvePath> readSpline(std::string_view pairs)
{
    const Spline spline = readValues(pairs);
    if (isEvaluable(spline))
        return {CurvePath::space(chords(spline))};
    const AcGePoint3dArray& points = spline.fits.empty() ? spline.controls : spline.fits;
    return points.empty() ? std::vector<CurvePath>{} : std::vector{CurvePath::space(points, spline.closed)};
}
