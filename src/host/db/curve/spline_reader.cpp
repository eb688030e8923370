#include "host/db/curve/curve_readers.h"

#include "kernel/curve/free_curves.h"
#include "store/pair_edit.h"

#include <algorithm>
#include <limits>

std::vector<CurvePath> readSpline(std::string_view text)
{
    SplineData spline;
    OwnPairs pairs{text};
    for (Tag tag; pairs.next(tag);)
        switch (tag.code)
        {
        case 70:
            spline.closed = (tag.integer() & 1) != 0;
            break;
        case 71:
            spline.degree = static_cast<int>(std::clamp<int64_t>(tag.integer(), 0, std::numeric_limits<int>::max()));
            break;
        case 40:
            spline.knots.push_back(tag.real());
            break;
        case 41:
            spline.weights.push_back(tag.real());
            break;
        case 10:
            spline.controlPoints.push_back(pairs.pointFrom(tag));
            break;
        case 11:
            spline.fitPoints.push_back(pairs.pointFrom(tag));
            break;
        default:
            break;
        }
    const CurvePath path = splinePath(spline);
    return path.isEmpty() ? std::vector<CurvePath>{} : std::vector{path};
}
