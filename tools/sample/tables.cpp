#include "frame.h"

#include <algorithm>
#include <array>

namespace
{
void BeginTable(DxfOut& out, const char* name, Handle handle, int count)
{
    out.Tag(0, "TABLE");
    out.Tag(2, name);
    out.Hex(5, handle);
    out.Hex(330, 0);
    out.Tag(100, "AcDbSymbolTable");
    out.Tag(70, count);
}

void EndTable(DxfOut& out)
{
    out.Tag(0, "ENDTAB");
}

void BeginRecord(DxfOut& out, const char* type, const char* subclass, Handle handle, Handle table, const char* name)
{
    out.Tag(0, type);
    out.Hex(std::string_view(type) == "DIMSTYLE" ? 105 : 5, handle);
    out.Hex(330, table);
    out.Tag(100, "AcDbSymbolTableRecord");
    out.Tag(100, subclass);
    out.Tag(2, name);
}

void WriteActiveView(DxfOut& out, const Totals& totals)
{
    constexpr double kMargin = 1.05;
    const Point low = totals.extents.low;
    const Point high = totals.extents.high;
    BeginTable(out, "VPORT", 0x8, 1);
    BeginRecord(out, "VPORT", "AcDbViewportTableRecord", 0x30, 0x8, "*ACTIVE");
    out.Tag(70, 0);
    out.At(10, {});
    out.At(11, {1, 1});
    out.At(12, {(low.x + high.x) / 2, (low.y + high.y) / 2});
    out.At(13, {});
    out.At(14, {10, 10});
    out.At(15, {10, 10});
    out.At(16, {}, 1);
    out.At(17, {}, 0);
    out.Real(40, kMargin * std::max(high.y - low.y, (high.x - low.x) / 2));
    out.Real(41, 2);
    out.Real(42, 50);
    out.Real(43, 0);
    out.Real(44, 0);
    out.Real(50, 0);
    out.Real(51, 0);
    for (const int code : {71, 72, 73, 74, 75, 76, 77, 78})
        out.Tag(code, code == 72 ? 1000 : code == 73 ? 1 : code == 74 ? 3 : 0);
    EndTable(out);
}

struct LineType
{
    const char* name;
    const char* description;
    Handle handle;
    double dash; ///< length of the dash, followed by a gap of half of it; 0 for an unbroken line
};

void WriteLineTypes(DxfOut& out)
{
    static constexpr std::array<LineType, 5> kLineTypes{{{"ByBlock", "", 0x14, 0},
                                                         {"ByLayer", "", 0x15, 0},
                                                         {"Continuous", "Solid line", 0x16, 0},
                                                         {"DUT", "__ __ __ __", 0x31, 2},
                                                         {"DUT_DAI", "____ ____ ____", 0x32, 6}}};
    BeginTable(out, "LTYPE", 0x5, kLineTypes.size());
    for (const LineType& type : kLineTypes)
    {
        BeginRecord(out, "LTYPE", "AcDbLinetypeTableRecord", type.handle, 0x5, type.name);
        out.Tag(70, 0);
        out.Tag(3, type.description);
        out.Tag(72, 65);
        out.Tag(73, type.dash > 0 ? 2 : 0);
        out.Real(40, 1.5 * type.dash);
        if (type.dash <= 0)
            continue;
        for (const double element : {type.dash, -type.dash / 2})
        {
            out.Real(49, element);
            out.Tag(74, 0);
        }
    }
    EndTable(out);
}

struct Layer
{
    const char* name;
    int colour;
    const char* lineType = "Continuous";
};

void WriteLayers(DxfOut& out)
{
    static constexpr std::array<Layer, 18> kLayers{{{"0", 7},
                                                    {"TIM_TUYEN", 1, "DUT_DAI"},
                                                    {"COC", 1},
                                                    {"DUONG", 7},
                                                    {"TALUY", 33},
                                                    {"NHA", 6},
                                                    {"THUY_HE", 5},
                                                    {"THUC_VAT", 3},
                                                    {"DIEN", 30, "DUT"},
                                                    {"DIEM_DO", 2},
                                                    {"DO_CAO", 8},
                                                    {"DONG_MUC", 42},
                                                    {"DONG_MUC_CAI", 32},
                                                    {"GHI_CHU", 4},
                                                    {"KHUNG", 9},
                                                    {"TN_DUONG", 3},
                                                    {"TN_KHUNG", 9},
                                                    {"TN_CHU", 7}}};
    BeginTable(out, "LAYER", 0x2, kLayers.size());
    Handle handle = 0x40;
    for (const Layer& layer : kLayers)
    {
        BeginRecord(out, "LAYER", "AcDbLayerTableRecord", handle++, 0x2, layer.name);
        out.Tag(70, 0);
        out.Tag(62, layer.colour);
        out.Tag(6, layer.lineType);
        out.Tag(370, -3);
        out.Hex(390, 0x13);
    }
    EndTable(out);
}

void WriteStyle(DxfOut& out, Handle handle, const char* name, const char* font, const char* face = nullptr)
{
    BeginRecord(out, "STYLE", "AcDbTextStyleTableRecord", handle, 0x3, name);
    out.Tag(70, 0);
    out.Real(40, 0);
    out.Real(41, 1);
    out.Real(50, 0);
    out.Tag(71, 0);
    out.Real(42, 2);
    out.Tag(3, font);
    out.Tag(4, "");
    if (face == nullptr)
        return;
    out.Tag(1001, "ACAD");
    out.Tag(1000, face);
    out.Tag(1071, 34);
}

void WriteStyles(DxfOut& out)
{
    BeginTable(out, "STYLE", 0x3, 3);
    WriteStyle(out, 0x11, "Standard", "txt");
    WriteStyle(out, 0x33, ".VnTime", "vntime.ttf", ".VnTime");
    WriteStyle(out, 0x34, "GHI_CHU", "arial.ttf", "Arial");
    EndTable(out);
}

void WriteApplications(DxfOut& out)
{
    static constexpr std::array<const char*, 2> kApplications{"ACAD", "SV_INFOR"};
    BeginTable(out, "APPID", 0x9, kApplications.size());
    Handle handle = 0x12;
    for (const char* name : kApplications)
    {
        BeginRecord(out, "APPID", "AcDbRegAppTableRecord", handle, 0x9, name);
        out.Tag(70, 0);
        handle = 0x35;
    }
    EndTable(out);
}

void WriteDimensionStyles(DxfOut& out)
{
    BeginTable(out, "DIMSTYLE", 0xA, 1);
    out.Tag(100, "AcDbDimStyleTable");
    out.Tag(71, 1);
    out.Hex(340, 0x27);
    BeginRecord(out, "DIMSTYLE", "AcDbDimStyleTableRecord", 0x27, 0xA, "Standard");
    out.Tag(70, 0);
    out.Hex(340, 0x11);
    EndTable(out);
}

void WriteBlockRecord(DxfOut& out, Handle handle, const char* name, Handle layout)
{
    BeginRecord(out, "BLOCK_RECORD", "AcDbBlockTableRecord", handle, 0x1, name);
    out.Hex(340, layout);
    if (out.Version() < Release::R2007)
        return;
    out.Tag(70, 6);
    out.Tag(280, 1);
    out.Tag(281, 0);
}

void WriteBlockRecords(DxfOut& out)
{
    BeginTable(out, "BLOCK_RECORD", 0x1, 2 + static_cast<int>(std::size(kBlocks)));
    WriteBlockRecord(out, kModelSpace, "*Model_Space", 0x22);
    WriteBlockRecord(out, kPaperSpace, "*Paper_Space", 0x1E);
    for (const BlockName& block : kBlocks)
        WriteBlockRecord(out, block.record, block.name, 0);
    EndTable(out);
}
} // namespace

void WriteTables(DxfOut& out, const Totals& totals)
{
    BeginSection(out, "TABLES");
    WriteActiveView(out, totals);
    WriteLineTypes(out);
    WriteLayers(out);
    WriteStyles(out);
    BeginTable(out, "VIEW", 0x6, 0);
    EndTable(out);
    BeginTable(out, "UCS", 0x7, 0);
    EndTable(out);
    WriteApplications(out);
    WriteDimensionStyles(out);
    WriteBlockRecords(out);
    EndSection(out);
}
