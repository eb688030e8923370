#pragma once

#include <cstdio>
#include <string>
#include <vector>

/// Builds the text of a drawing for tests of what a user sees and selects: layers, blocks, and entities in the order
/// in which they are given. The entities that are added get handles from `kFirst` on, in that order.
class PlanDrawing
{
public:
    static constexpr unsigned kFirst = 0x100;

    /// `pairs` are words: code, value, code, value ...
    static std::string pairs(const std::vector<std::string>& words)
    {
        std::string text;
        for (const std::string& word : words)
            text += word + "\n";
        return text;
    }

    PlanDrawing& header(const std::string& name, const std::vector<std::string>& value)
    {
        m_header += pairs({"9", name}) + pairs(value);
        return *this;
    }
    PlanDrawing& view(double x, double y, double height, double aspect)
    {
        m_view = pairs({"0",   "VPORT",
                        "5",   "F1",
                        "330", "F0",
                        "100", "AcDbSymbolTableRecord",
                        "100", "AcDbViewportTableRecord",
                        "2",   "*Active",
                        "70",  "0",
                        "12",  std::to_string(x),
                        "22",  std::to_string(y),
                        "40",  std::to_string(height),
                        "41",  std::to_string(aspect)});
        return *this;
    }
    PlanDrawing& layer(const std::string& name, int flags = 0, int color = 7)
    {
        m_layers += pairs({"0", "LAYER", "5", nextHandle(), "330", "2", "100", "AcDbSymbolTableRecord", "100",
                           "AcDbLayerTableRecord", "2", name, "70", std::to_string(flags), "62", std::to_string(color),
                           "6", "Continuous"});
        return *this;
    }
    /// `contents` are whole entities.
    PlanDrawing& block(const std::string& name, const std::string& contents, const std::string& baseX = "0")
    {
        m_blockRecords += pairs({"0", "BLOCK_RECORD", "5", nextHandle(), "330", "1", "100", "AcDbSymbolTableRecord",
                                 "100", "AcDbBlockTableRecord", "2", name});
        m_blocks += pairs({"0",   "BLOCK",
                           "5",   nextHandle(),
                           "100", "AcDbEntity",
                           "8",   "0",
                           "100", "AcDbBlockBegin",
                           "2",   name,
                           "70",  "0",
                           "10",  baseX,
                           "20",  "0",
                           "30",  "0",
                           "3",   name,
                           "1",   ""}) +
                    contents +
                    pairs({"0", "ENDBLK", "5", nextHandle(), "100", "AcDbEntity", "8", "0", "100", "AcDbBlockEnd"});
        return *this;
    }
    /// An entity: its kind, layer, subclass and own pairs, and more common ones.
    std::string entity(const std::string& kind, const std::string& layer, const std::string& subclass,
                       const std::vector<std::string>& own, const std::vector<std::string>& common = {})
    {
        return pairs({"0", kind, "5", nextHandle(), "330", "1F", "100", "AcDbEntity", "8", layer}) + pairs(common) +
               pairs({"100", subclass}) + pairs(own);
    }
    std::string line(double x1, double y1, double x2, double y2, const std::string& layer = "0",
                     const std::vector<std::string>& common = {})
    {
        return entity("LINE", layer, "AcDbLine",
                      {"10", std::to_string(x1), "20", std::to_string(y1), "30", "0", "11", std::to_string(x2), "21",
                       std::to_string(y2), "31", "0"},
                      common);
    }
    std::string insert(const std::string& block, double x, double y, const std::vector<std::string>& more = {})
    {
        std::vector<std::string> own{"2", block, "10", std::to_string(x), "20", std::to_string(y), "30", "0"};
        own.insert(own.end(), more.begin(), more.end());
        return entity("INSERT", "0", "AcDbBlockReference", own);
    }
    std::string surveyPoint(double x, double y, const std::string& code)
    {
        return entity("PLXDBMEASUREPOINTOBJ", "0", "PlxDbPointObj",
                      {"10", std::to_string(x), "20", std::to_string(y), "30", "1.5", "70", "1", "1", code, "100",
                       "PlxDbMeasurePointObj"});
    }
    PlanDrawing& add(const std::string& entityText) { return addTo(m_entities, entityText); }

    std::string text() const
    {
        return pairs({"0", "SECTION", "2", "HEADER", "9", "$ACADVER", "1", "AC1027", "9", "$HANDSEED", "5", "FFFF"}) +
               m_header + pairs({"0", "ENDSEC", "0", "SECTION", "2", "TABLES"}) + table("VPORT", "F0", m_view) +
               table("LAYER", "2", m_layers) + table("APPID", "9", "") +
               table("BLOCK_RECORD", "1",
                     spaceRecord("*Model_Space", "1F") + spaceRecord("*Paper_Space", "1B") +
                         spaceRecord("*Paper_Space0", "1C") + m_blockRecords) +
               pairs({"0", "ENDSEC", "0", "SECTION", "2", "BLOCKS"}) + space("*Model_Space", "20", "") +
               space("*Paper_Space", "22", "") + space("*Paper_Space0", "24", m_otherPaper) + m_blocks +
               pairs({"0", "ENDSEC", "0", "SECTION", "2", "ENTITIES"}) + m_entities +
               pairs({"0", "ENDSEC", "0", "SECTION", "2", "OBJECTS", "0", "DICTIONARY", "5", "C", "100",
                      "AcDbDictionary", "0", "ENDSEC", "0", "EOF"});
    }

    /// An entity of a paper space that is not the current one.
    PlanDrawing& addToOtherPaper(const std::string& entityText) { return addTo(m_otherPaper, entityText); }

private:
    static std::string table(const std::string& name, const std::string& handle, const std::string& records)
    {
        return pairs({"0", "TABLE", "2", name, "5", handle, "100", "AcDbSymbolTable"}) + records +
               pairs({"0", "ENDTAB"});
    }
    static std::string spaceRecord(const std::string& name, const std::string& handle)
    {
        return pairs({"0", "BLOCK_RECORD", "5", handle, "330", "1", "100", "AcDbSymbolTableRecord", "100",
                      "AcDbBlockTableRecord", "2", name});
    }
    static std::string space(const std::string& name, const std::string& handle, const std::string& contents)
    {
        return pairs({"0", "BLOCK", "5",  handle, "100", "AcDbEntity", "8",  "0", "100", "AcDbBlockBegin",
                      "2", name,    "70", "0",    "10",  "0",          "20", "0", "30",  "0",
                      "3", name,    "1",  ""}) +
               contents +
               pairs({"0", "ENDBLK", "5", handle + "1", "100", "AcDbEntity", "8", "0", "100", "AcDbBlockEnd"});
    }
    static std::string hex(unsigned value)
    {
        char buffer[16];
        std::snprintf(buffer, sizeof buffer, "%X", value);
        return buffer;
    }
    std::string nextHandle() { return hex(m_next++); }
    PlanDrawing& addTo(std::string& entities, const std::string& entityText)
    {
        const size_t at = entityText.find("\n5\n") + 3;
        entities += entityText.substr(0, at) + hex(kFirst + m_added++) + entityText.substr(entityText.find('\n', at));
        return *this;
    }

    std::string m_header;
    std::string m_view;
    std::string m_layers;
    std::string m_blockRecords;
    std::string m_blocks;
    std::string m_entities;
    std::string m_otherPaper;
    unsigned m_added = 0;
    unsigned m_next = 0x1000;
};
