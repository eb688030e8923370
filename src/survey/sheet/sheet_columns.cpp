#include "survey/sheet/sheet_columns.h"

#include <algorithm>
#include <cmath>

namespace survey
{

std::vector<AcGePoint2d> columnPlaces(std::span<const SheetSize> sheets, const AcGePoint2d& upperLeft,
                                      double leastHeight)
{
    double area = 0.0;
    for (const SheetSize& sheet : sheets)
        area += (sheet.width + kSheetGap) * (sheet.height + kSheetGap);
    const double height = std::max(leastHeight, std::sqrt(area));

    std::vector<AcGePoint2d> places;
    AcGePoint2d at = upperLeft;
    double columnWidth = 0.0;
    for (const SheetSize& sheet : sheets)
    {
        if (at.y < upperLeft.y && upperLeft.y - at.y + sheet.height > height)
        {
            at = {at.x + columnWidth + kSheetGap, upperLeft.y};
            columnWidth = 0.0;
        }
        places.push_back(at);
        at.y -= sheet.height + kSheetGap;
        columnWidth = std::max(columnWidth, sheet.width);
    }
    return places;
}

double rightEndOf(std::span<const SheetSize> sheets, std::span<const AcGePoint2d> places)
{
    double end = -HUGE_VAL;
    for (size_t i = 0; i < places.size(); ++i)
        end = std::max(end, places[i].x + sheets[i].width);
    return end;
}

} // namespace survey
