#include "frame.h"

#include <array>

namespace
{
const char* VersionName(Release release)
{
    static constexpr std::array<const char*, 6> kNames{"AC1015", "AC1018", "AC1021", "AC1024", "AC1027", "AC1032"};
    return kNames.at(static_cast<std::size_t>(release));
}

void Variable(DxfOut& out, const char* name)
{
    out.Tag(9, name);
}

void NumberVariable(DxfOut& out, const char* name, int code, int value)
{
    Variable(out, name);
    out.Tag(code, value);
}

void NameVariable(DxfOut& out, const char* name, int code, const char* value)
{
    Variable(out, name);
    out.Tag(code, value);
}

void PointVariable(DxfOut& out, const char* name, Point value)
{
    Variable(out, name);
    out.At(10, value, 0);
}

void WriteHeader(DxfOut& out, const Totals& totals)
{
    BeginSection(out, "HEADER");
    NameVariable(out, "$ACADVER", 1, VersionName(out.Version()));
    NameVariable(out, "$DWGCODEPAGE", 3, "ANSI_1258");
    PointVariable(out, "$INSBASE", {});
    PointVariable(out, "$EXTMIN", totals.extents.low);
    PointVariable(out, "$EXTMAX", totals.extents.high);
    NumberVariable(out, "$FILLMODE", 70, 1);
    Variable(out, "$LTSCALE");
    out.Real(40, 1);
    NameVariable(out, "$TEXTSTYLE", 7, "Standard");
    NameVariable(out, "$CLAYER", 8, "0");
    NameVariable(out, "$CELTYPE", 6, "ByLayer");
    NumberVariable(out, "$CECOLOR", 62, 256);
    NameVariable(out, "$DIMSTYLE", 2, "Standard");
    NumberVariable(out, "$LUNITS", 70, 2);
    NumberVariable(out, "$LUPREC", 70, 4);
    NumberVariable(out, "$TILEMODE", 70, 1);
    NumberVariable(out, "$MEASUREMENT", 70, 1);
    NumberVariable(out, "$INSUNITS", 70, 6);
    Variable(out, "$HANDSEED");
    out.Hex(5, totals.handSeed);
    EndSection(out);
}

void WriteClass(DxfOut& out, const char* record, const char* name, const char* application, int count)
{
    out.Tag(0, "CLASS");
    out.Tag(1, record);
    out.Tag(2, name);
    out.Tag(3, application);
    out.Tag(90, 0);
    if (out.Version() >= Release::R2004)
        out.Tag(91, count);
    out.Tag(280, 0);
    out.Tag(281, 1);
}

void WriteClasses(DxfOut& out, const Totals& totals)
{
    BeginSection(out, "CLASSES");
    WriteClass(out, "PLXDBMEASUREPOINTOBJ", "PlxDbMeasurePointObj", "PlxObjects", totals.points);
    WriteClass(out, "PLXDBALIGNMENT", "PlxDbAlignment", "RouteBase", totals.alignments);
    EndSection(out);
}

/// A viewport of the sheet: the sheet's own one (id 1) or a window on the model.
void WriteViewport(DxfOut& out, int id, Point centre, Point size, Point viewCentre, double viewHeight)
{
    ++out.Running().entities;
    out.Tag(0, "VIEWPORT");
    out.Hex(5, out.NewHandle());
    out.Hex(330, kPaperSpace);
    out.Tag(100, "AcDbEntity");
    out.Tag(67, 1);
    out.Tag(8, "0");
    out.Tag(100, "AcDbViewport");
    out.At(10, centre, 0);
    out.Real(40, size.x);
    out.Real(41, size.y);
    out.Tag(68, id);
    out.Tag(69, id);
    out.At(12, viewCentre);
    out.At(13, {});
    out.At(14, {10, 10});
    out.At(15, {10, 10});
    out.At(16, {}, 1);
    out.At(17, {}, 0);
    out.Real(42, 50);
    out.Real(43, 0);
    out.Real(44, 0);
    out.Real(45, viewHeight);
    out.Real(50, 0);
    out.Real(51, 0);
    out.Tag(72, 100);
    out.Tag(90, 32864);
    out.Tag(1, "");
    out.Tag(281, 0);
    out.Tag(71, 1);
    out.Tag(74, 0);
    out.At(110, {}, 0);
    out.At(111, {1, 0}, 0);
    out.At(112, {0, 1}, 0);
    out.Tag(79, 0);
    out.Real(146, 0);
}
} // namespace

void BeginSection(DxfOut& out, const char* name)
{
    out.Tag(0, "SECTION");
    out.Tag(2, name);
}

void EndSection(DxfOut& out)
{
    out.Tag(0, "ENDSEC");
}

void WriteOpening(DxfOut& out, const Totals& totals)
{
    WriteHeader(out, totals);
    WriteClasses(out, totals);
    WriteTables(out, totals);
    WriteBlocks(out);
}

void WriteEntitiesStart(DxfOut& out)
{
    BeginSection(out, "ENTITIES");
}

void WriteClosing(DxfOut& out, const Totals& totals)
{
    const Point low = totals.extents.low;
    const Point high = totals.extents.high;
    const Point middle{(low.x + high.x) / 2, (low.y + high.y) / 2};
    WriteViewport(out, 1, {210, 148.5}, {420, 297}, {210, 148.5}, 297);
    WriteViewport(out, 2, {210, 148.5}, {390, 277}, middle, high.y - low.y);
    EndSection(out);
    WriteObjects(out);
    out.Tag(0, "EOF");
}
