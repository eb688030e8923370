#include "host/db/insert/subclass_markers.h"

#include <algorithm>
#include <array>

namespace
{

/// Where the pairs of a kind go: all behind the markers of `first`, but those of `laterCodes` behind `later`.
struct Parts
{
    std::vector<std::string_view> first;
    std::string_view later = {};
    std::vector<int> laterCodes = {};
};

template <class Pair>
int flagsOf(const std::vector<Pair>& pairs)
{
    for (const Pair& pair : pairs)
        if (pair.code == 70)
            return static_cast<int>(Tag{pair.code, pair.value}.integer());
    return 0;
}

Parts polylineParts(int flags)
{
    if ((flags & 8) != 0)
        return {{"AcDb3dPolyline"}};
    if ((flags & 16) != 0)
        return {{"AcDbPolygonMesh"}};
    return (flags & 64) != 0 ? Parts{{"AcDbPolyFaceMesh"}} : Parts{{"AcDb2dPolyline"}};
}

Parts vertexParts(int flags)
{
    if ((flags & 32) != 0)
        return {{"AcDbVertex", "AcDb3dPolylineVertex"}};
    if ((flags & 128) != 0)
        return (flags & 64) != 0 ? Parts{{"AcDbVertex", "AcDbPolyFaceMeshVertex"}} : Parts{{"AcDbFaceRecord"}};
    return (flags & 64) != 0 ? Parts{{"AcDbVertex", "AcDbPolygonMeshVertex"}} : Parts{{"AcDbVertex", "AcDb2dVertex"}};
}

Parts partsOf(std::string_view kind, int flags)
{
    if (kind == "LINE")
        return {{"AcDbLine"}};
    if (kind == "POINT")
        return {{"AcDbPoint"}};
    if (kind == "CIRCLE")
        return {{"AcDbCircle"}};
    if (kind == "ARC")
        return {{"AcDbCircle"}, "AcDbArc", {50, 51}};
    if (kind == "SOLID" || kind == "TRACE")
        return {{"AcDbTrace"}};
    if (kind == "3DFACE")
        return {{"AcDbFace"}};
    if (kind == "INSERT")
        return {{"AcDbBlockReference"}};
    if (kind == "TEXT")
        return {{"AcDbText"}, "AcDbText", {73}};
    if (kind == "ATTRIB")
        return {{"AcDbText"}, "AcDbAttribute", {2, 70, 73, 74}};
    if (kind == "ATTDEF")
        return {{"AcDbText"}, "AcDbAttributeDefinition", {3, 2, 70, 73, 74}};
    if (kind == "POLYLINE")
        return polylineParts(flags);
    if (kind == "VERTEX")
        return vertexParts(flags);
    constexpr std::array<std::pair<std::string_view, std::string_view>, 10> kSinceR13{{{"DIMENSION", "AcDbDimension"},
                                                                                       {"ELLIPSE", "AcDbEllipse"},
                                                                                       {"HATCH", "AcDbHatch"},
                                                                                       {"LEADER", "AcDbLeader"},
                                                                                       {"LWPOLYLINE", "AcDbPolyline"},
                                                                                       {"MTEXT", "AcDbMText"},
                                                                                       {"RAY", "AcDbRay"},
                                                                                       {"SPLINE", "AcDbSpline"},
                                                                                       {"TOLERANCE", "AcDbFcf"},
                                                                                       {"XLINE", "AcDbXline"}}};
    for (const auto& [name, marker] : kSinceR13)
        if (kind == name)
            return {{marker}};
    return {};
}

bool isCommon(int code)
{
    constexpr std::array kCommon{8, 6, 62, 60, 48};
    return std::find(kCommon.begin(), kCommon.end(), code) != kCommon.end();
}

} // namespace

std::string_view missingMarker(std::string_view kind, const std::vector<Tag>& pairs, int version)
{
    constexpr int kR13 = 1012;
    constexpr int kMarker = 100;
    const auto has = [&](std::string_view marker)
    {
        return std::any_of(pairs.begin(), pairs.end(),
                           [&](const Tag& tag)
                           { return tag.code == kMarker && (marker.empty() || tag.word() == marker); });
    };
    if (version < kR13 && !has({}))
        return {};
    const Parts parts = partsOf(kind, flagsOf(pairs));
    if (!has("AcDbEntity"))
        return "AcDbEntity";
    const auto isOther = [](const Tag& tag) { return tag.code == kMarker && tag.word() != "AcDbEntity"; };
    // Which of their forms these have is said by flags: programs do not agree on the markers.
    if (kind == "POLYLINE" || kind == "VERTEX" || kind == "INSERT")
        return std::any_of(pairs.begin(), pairs.end(), isOther) ? std::string_view{} : parts.first.front();
    for (const std::string_view marker : parts.first)
        if (!has(marker))
            return marker;
    return parts.later.empty() || has(parts.later) ? std::string_view{} : parts.later;
}

void writeWithMarkers(TagWriter& out, std::string_view kind, const std::vector<CarriedPair>& pairs)
{
    constexpr int kElevationOfOldEntities = 38;
    const Parts parts = partsOf(kind, flagsOf(pairs));
    const auto isLater = [&](int code)
    { return std::find(parts.laterCodes.begin(), parts.laterCodes.end(), code) != parts.laterCodes.end(); };
    const auto writeAll = [&](const auto& belongs)
    {
        for (const CarriedPair& pair : pairs)
            if (belongs(pair.code))
                out.text(pair.code, pair.value);
    };
    out.text(100, "AcDbEntity");
    writeAll(isCommon);
    for (const std::string_view marker : parts.first)
        out.text(100, marker);
    writeAll([&](int code) { return !isCommon(code) && !isLater(code) && code != kElevationOfOldEntities; });
    if (parts.later.empty())
        return;
    out.text(100, parts.later);
    writeAll(isLater);
}
