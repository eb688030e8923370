#include "host/companion/custom_classes.h"

#include "host/companion/alignment.h"
#include "host/companion/measure_point.h"

const std::array<CustomClass, 2>& customClasses()
{
    static const std::array<CustomClass, 2> list{{
        {PlxDbMeasurePointObj::desc(), "PlxObjects"},
        {PlxDbAlignment::desc(), "RouteBase"},
    }};
    return list;
}
