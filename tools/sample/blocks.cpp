#include "frame.h"

#include <cmath>
#include <string_view>

namespace
{
/// Writes the entities of one block definition, on layer 0 and in the colour of the reference.
class BlockPen
{
public:
    BlockPen(DxfOut& out, Handle record) : m_out(out), m_record(record), m_next(record + 3) {}

    void Line(Point from, Point to)
    {
        Begin("LINE", "AcDbLine");
        m_out.At(10, from, 0);
        m_out.At(11, to, 0);
    }

    void Circle(Point centre, double radius)
    {
        Begin("CIRCLE", "AcDbCircle");
        m_out.At(10, centre, 0);
        m_out.Real(40, radius);
    }

private:
    void Begin(const char* type, const char* subclass)
    {
        m_out.Tag(0, type);
        m_out.Hex(5, m_next++);
        m_out.Hex(330, m_record);
        m_out.Tag(100, "AcDbEntity");
        m_out.Tag(8, "0");
        m_out.Tag(62, 0);
        m_out.Tag(100, subclass);
    }

    DxfOut& m_out;
    Handle m_record;
    Handle m_next;
};

void DrawContent(BlockPen& pen, std::string_view name)
{
    if (name == "COT_DIEN")
    {
        pen.Circle({}, 0.5);
        pen.Line({-1.2, 0}, {-0.5, 0});
        pen.Line({0.5, 0}, {1.2, 0});
        pen.Line({-0.9, -0.3}, {-0.9, 0.3});
        pen.Line({0.9, -0.3}, {0.9, 0.3});
    }
    else if (name == "COT_DEN")
    {
        pen.Circle({}, 0.35);
        pen.Line({0, 0.35}, {0, 1.6});
        pen.Line({0, 1.6}, {0.8, 1.9});
        pen.Circle({0.95, 1.9}, 0.15);
    }
    else if (name == "CAY_TO")
    {
        pen.Circle({}, 1);
        for (int spoke = 0; spoke < 6; ++spoke)
            pen.Line({0.4 * std::cos(1.0472 * spoke), 0.4 * std::sin(1.0472 * spoke)},
                     {std::cos(1.0472 * spoke), std::sin(1.0472 * spoke)});
    }
    else if (name == "HO_GA")
    {
        pen.Circle({}, 0.6);
        pen.Line({-0.42, -0.42}, {0.42, 0.42});
        pen.Line({-0.42, 0.42}, {0.42, -0.42});
    }
    else if (name == "LUA")
    {
        pen.Line({0, -0.5}, {0, 0.6});
        pen.Line({0, -0.2}, {-0.4, 0.4});
        pen.Line({0, -0.2}, {0.4, 0.4});
    }
    else
    {
        pen.Line({-0.6, 0}, {0.6, 0});
        pen.Line({-0.4, 0}, {-0.2, 0.4});
        pen.Line({0.4, 0}, {0.2, 0.4});
    }
}

void BeginBlock(DxfOut& out, const char* name, Handle record, Handle handle, bool paper)
{
    out.Tag(0, "BLOCK");
    out.Hex(5, handle);
    out.Hex(330, record);
    out.Tag(100, "AcDbEntity");
    if (paper)
        out.Tag(67, 1);
    out.Tag(8, "0");
    out.Tag(100, "AcDbBlockBegin");
    out.Tag(2, name);
    out.Tag(70, 0);
    out.At(10, {}, 0);
    out.Tag(3, name);
    out.Tag(1, "");
}

void EndBlock(DxfOut& out, Handle record, Handle handle, bool paper)
{
    out.Tag(0, "ENDBLK");
    out.Hex(5, handle);
    out.Hex(330, record);
    out.Tag(100, "AcDbEntity");
    if (paper)
        out.Tag(67, 1);
    out.Tag(8, "0");
    out.Tag(100, "AcDbBlockEnd");
}
} // namespace

void WriteBlocks(DxfOut& out)
{
    BeginSection(out, "BLOCKS");
    BeginBlock(out, "*Model_Space", kModelSpace, 0x20, false);
    EndBlock(out, kModelSpace, 0x21, false);
    BeginBlock(out, "*Paper_Space", kPaperSpace, 0x1C, true);
    EndBlock(out, kPaperSpace, 0x1D, true);
    for (const BlockName& block : kBlocks)
    {
        BeginBlock(out, block.name, block.record, block.record + 1, false);
        BlockPen pen(out, block.record);
        DrawContent(pen, block.name);
        EndBlock(out, block.record, block.record + 2, false);
    }
    EndSection(out);
}
