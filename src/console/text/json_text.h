#pragma once

#include "kernel/point3d.h"
#include "store/object_id.h"
#include "store/text/text.h"

#include <cmath>
#include <nlohmann/json.hpp>

namespace console
{

/// Members keep the order in which they were set.
using Json = nlohmann::ordered_json;

/// A number where one is promised: JSON has none for what lies beyond all numbers, which is 0 there.
inline double jsonNumber(double value)
{
    return std::isfinite(value) ? value : 0.0;
}

inline Json jsonPoint(const AcGePoint3d& point)
{
    return Json::array({jsonNumber(point.x), jsonNumber(point.y), jsonNumber(point.z)});
}

inline Json jsonVector(const AcGeVector3d& vector)
{
    return Json::array({jsonNumber(vector.x), jsonNumber(vector.y), jsonNumber(vector.z)});
}

/// The handle as hexadecimal text; "0" for none.
inline std::string handleText(AcDbObjectId id)
{
    char16_t digits[24];
    id.handle().getIntoAsciiBuffer(digits, std::size(digits));
    return toUtf8(digits);
}

/// What `convert` makes of each element.
template <class List, class Convert>
Json listJson(const List& list, Convert convert)
{
    Json json = Json::array();
    for (const auto& element : list)
        json.push_back(convert(element));
    return json;
}

/// One line of JSON. Bytes that are no UTF-8 (of paths) stand as letters of 8-bit Vietnamese.
std::string oneLine(Json json);

} // namespace console
