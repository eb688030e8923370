#include "frame.h"

#include <initializer_list>

namespace
{
constexpr Handle kGroups = 0xD;
constexpr Handle kPlotStyles = 0xE;
constexpr Handle kNormalPlotStyle = 0x13;
constexpr Handle kLineStyles = 0x17;
constexpr Handle kStandardLineStyle = 0x18;
constexpr Handle kPlotSettings = 0x19;
constexpr Handle kLayouts = 0x1A;
constexpr Handle kSheetLayout = 0x1E;
constexpr Handle kModelLayout = 0x22;

struct Entry
{
    const char* name;
    Handle handle;
};

void BeginObject(DxfOut& out, const char* type, Handle handle, Handle owner)
{
    out.Tag(0, type);
    out.Hex(5, handle);
    out.Tag(102, "{ACAD_REACTORS");
    out.Hex(330, owner);
    out.Tag(102, "}");
    out.Hex(330, owner);
}

void WriteEntries(DxfOut& out, std::initializer_list<Entry> entries)
{
    out.Tag(100, "AcDbDictionary");
    out.Tag(281, 1);
    for (const Entry& entry : entries)
    {
        out.Tag(3, entry.name);
        out.Hex(350, entry.handle);
    }
}

void WriteDictionary(DxfOut& out, Handle handle, std::initializer_list<Entry> entries)
{
    BeginObject(out, "DICTIONARY", handle, kRootDictionary);
    WriteEntries(out, entries);
}

void WritePlotStyles(DxfOut& out)
{
    BeginObject(out, "ACDBDICTIONARYWDFLT", kPlotStyles, kRootDictionary);
    WriteEntries(out, {{"Normal", kNormalPlotStyle}});
    out.Tag(100, "AcDbDictionaryWithDefault");
    out.Hex(340, kNormalPlotStyle);
    BeginObject(out, "ACDBPLACEHOLDER", kNormalPlotStyle, kPlotStyles);
}

void WriteLineStyle(DxfOut& out)
{
    BeginObject(out, "MLINESTYLE", kStandardLineStyle, kLineStyles);
    out.Tag(100, "AcDbMlineStyle");
    out.Tag(2, "Standard");
    out.Tag(70, 0);
    out.Tag(3, "");
    out.Tag(62, 256);
    out.Real(51, 90);
    out.Real(52, 90);
    out.Tag(71, 2);
    for (const double offset : {0.5, -0.5})
    {
        out.Real(49, offset);
        out.Tag(62, 256);
        out.Tag(6, "BYLAYER");
    }
}

void WritePlotPart(DxfOut& out, bool model)
{
    out.Tag(100, "AcDbPlotSettings");
    out.Tag(1, "");
    out.Tag(2, "none_device");
    out.Tag(4, "A3");
    out.Tag(6, "");
    for (const int code : {40, 41, 42, 43})
        out.Real(code, model ? 7.5 : 10);
    out.Real(44, 420);
    out.Real(45, 297);
    for (const int code : {46, 47, 48, 49, 140, 141})
        out.Real(code, 0);
    out.Real(142, 1);
    out.Real(143, 1);
    out.Tag(70, model ? 1712 : 688);
    out.Tag(72, 1);
    out.Tag(73, 0);
    out.Tag(74, 5);
    out.Tag(7, "");
    out.Tag(75, 16);
    out.Real(147, 1);
    out.Real(148, 0);
    out.Real(149, 0);
}

void WriteLayout(DxfOut& out, Handle handle, const char* name, int tab, Handle record)
{
    BeginObject(out, "LAYOUT", handle, kLayouts);
    WritePlotPart(out, tab == 0);
    out.Tag(100, "AcDbLayout");
    out.Tag(1, name);
    out.Tag(70, 1);
    out.Tag(71, tab);
    out.At(10, {});
    out.At(11, {420, 297});
    out.At(12, {}, 0);
    out.At(14, {}, 0);
    out.At(15, {420, 297}, 0);
    out.Real(146, 0);
    out.At(13, {}, 0);
    out.At(16, {1, 0}, 0);
    out.At(17, {0, 1}, 0);
    out.Tag(76, 0);
    out.Hex(330, record);
}
} // namespace

void WriteObjects(DxfOut& out)
{
    BeginSection(out, "OBJECTS");
    out.Tag(0, "DICTIONARY");
    out.Hex(5, kRootDictionary);
    out.Hex(330, 0);
    WriteEntries(out, {{"ACAD_GROUP", kGroups},
                       {"ACAD_LAYOUT", kLayouts},
                       {"ACAD_MLINESTYLE", kLineStyles},
                       {"ACAD_PLOTSETTINGS", kPlotSettings},
                       {"ACAD_PLOTSTYLENAME", kPlotStyles}});
    WriteDictionary(out, kGroups, {});
    WriteDictionary(out, kLayouts, {{"Model", kModelLayout}, {"Layout1", kSheetLayout}});
    WriteDictionary(out, kLineStyles, {{"Standard", kStandardLineStyle}});
    WriteDictionary(out, kPlotSettings, {});
    WritePlotStyles(out);
    WriteLineStyle(out);
    WriteLayout(out, kModelLayout, "Model", 0, kModelSpace);
    WriteLayout(out, kSheetLayout, "Layout1", 1, kPaperSpace);
    EndSection(out);
}
