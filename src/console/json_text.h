#pragma once

#include "host/drawing/object_id.h"
#include "host/geometry/point3d.h"
#include "host/text.h"

#include <nlohmann/json.hpp>

namespace console
{

/// Members keep the order in which they were set.
using Json = nlohmann::ordered_json;

inline Json jsonPoint(const AcGePoint3d& point)
{
    return Json::array({point.x, point.y, point.z});
}

inline Json jsonVector(const AcGeVector3d& vector)
{
    return Json::array({vector.x, vector.y, vector.z});
}

/// The handle as hexadecimal text; "0" for none.
inline std::string handleText(AcDbObjectId id)
{
    char16_t digits[24];
    id.handle().getIntoAsciiBuffer(digits, std::size(digits));
    return toUtf8(digits);
}

/// One line of JSON. Bytes that are no UTF-8 (of paths) stand as letters of 8-bit Vietnamese.
std::string oneLine(Json json);

} // namespace console
