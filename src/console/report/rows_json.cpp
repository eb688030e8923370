#include "console/report/rows_json.h"

#include "console/text/shown_text.h"
#include "sections/database_cs.h"

#include <cmath>
#include <cstdio>

namespace console
{

namespace
{

Json symbolRow(const BlockData& row)
{
    return {{"name", toUtf8(row.m_strName)},          {"file", toUtf8(row.m_strFile)},
            {"offset1", jsonNumber(row.m_dOffset1)},  {"offset2", jsonNumber(row.m_dOffset2)},
            {"scaleX", jsonNumber(row.m_dScaleX)},    {"scaleY", jsonNumber(row.m_dScaleY)},
            {"rotation", jsonNumber(row.m_dRotation)}};
}

Json nearbyRow(const BlockData& row)
{
    Json json = symbolRow(row);
    json["object"] = handleText(row.m_idBlock);
    return json;
}

Json codeRow(const BlockFcode& row)
{
    return {{"code", toUtf8(row.m_strFcode)},      {"file", toUtf8(row.m_strFile)},
            {"offset", jsonNumber(row.m_dOffset)}, {"scaleX", jsonNumber(row.m_dScaleX)},
            {"scaleY", jsonNumber(row.m_dScaleY)}, {"rotation", jsonNumber(row.m_dRotation)}};
}

Json planRow(const BlockFcode& row)
{
    Json json = codeRow(row);
    json["position"] = jsonPoint(row.m_ptPosition);
    return json;
}

Json sectionJson(const CrossSectionXdata& section)
{
    return {{"name", toUtf8(section.m_strName)},
            {"center", jsonPoint(section.m_ptCenter)},
            {"direction", jsonVector(section.m_vecDir)},
            {"extent1", jsonNumber(section.m_dExtent1)},
            {"extent2", jsonNumber(section.m_dExtent2)},
            {"origin", jsonPoint(section.m_ptOrigin)},
            {"groundLine", handleText(section.m_idGroundLine)},
            {"scale", isUsableScale(section.m_dScale) ? section.m_dScale : 0.0},
            {"nearby", listJson(section.m_listBlockData1, nearbyRow)},
            {"crossing", listJson(section.m_listBlockData2, symbolRow)},
            {"codes", listJson(section.m_listBlockFcode1, codeRow)},
            {"plan", listJson(section.m_listBlockFcode2, planRow)}};
}

Json alignmentJson(const ItemReferenceLine& line)
{
    return {{"name", toUtf8(line.m_strName)},
            {"handle", handleText(line.m_idAlignment)},
            {"sections", listJson(line.m_listCrossSections, sectionJson)}};
}

std::string shown(double value)
{
    char buffer[64];
    std::snprintf(buffer, sizeof buffer, "%.3f", value);
    return buffer;
}

std::string symbolText(const char* kind, const BlockData& row)
{
    std::string text = "    " + std::string{kind} + "  " + toUtf8(row.m_strName) + "  at " + shown(row.m_dOffset1);
    return row.m_dOffset2 != 0.0 ? text + " and " + shown(row.m_dOffset2) : text;
}

} // namespace

bool isUsableScale(double scale)
{
    return std::isfinite(scale) && scale > 0.0;
}

Json rowsJson(const DatabaseCS& database, const std::string& drawing)
{
    return {{"drawing", drawing}, {"alignments", listJson(database.m_listReferenceLines, alignmentJson)}};
}

std::string rowsText(const DatabaseCS& database)
{
    std::string text;
    for (const ItemReferenceLine& line : database.m_listReferenceLines)
    {
        text += shownLine(toUtf8(line.m_strName) + ": " + std::to_string(line.m_listCrossSections.size()) +
                          " cross-sections");
        for (const CrossSectionXdata& section : line.m_listCrossSections)
        {
            text += shownLine("  " + toUtf8(section.m_strName));
            for (const BlockData& row : section.m_listBlockData1)
                text += shownLine(symbolText("nearby  ", row));
            for (const BlockData& row : section.m_listBlockData2)
                text += shownLine(symbolText("crossing", row));
            for (const BlockFcode& row : section.m_listBlockFcode1)
                text += shownLine("    point     " + toUtf8(row.m_strFcode) + "  at " + shown(row.m_dOffset));
        }
    }
    return text.empty() ? "The drawing has no alignment.\n" : text;
}

} // namespace console
