#pragma once

#include "dxf_out.h"

/// Handles of the records that the frame of every drawing has. Entities get theirs from `kFirstFreeHandle` on.
inline constexpr Handle kRootDictionary = 0xC;
inline constexpr Handle kModelSpace = 0x1F;
inline constexpr Handle kPaperSpace = 0x1B;
inline constexpr Handle kFirstFreeHandle = 0x200;

/// Writes all that stands before the entities: header, classes, tables and block definitions. `totals` are those of
/// the finished drawing.
void WriteOpening(DxfOut& out, const Totals& totals);

/// Opens the entities section.
void WriteEntitiesStart(DxfOut& out);

/// Writes the paper space's viewports, closes the entities and writes the objects and the end of the file.
void WriteClosing(DxfOut& out, const Totals& totals);

/// The parts that WriteOpening is made of.
void WriteTables(DxfOut& out, const Totals& totals);
void WriteBlocks(DxfOut& out);
void WriteObjects(DxfOut& out);

/// The block definitions of every drawing besides model and paper space.
struct BlockName
{
    const char* name;
    Handle record;
};
inline constexpr BlockName kBlocks[] = {{"COT_DIEN", 0x100}, {"COT_DEN", 0x110}, {"CAY_TO", 0x120},
                                        {"HO_GA", 0x130},    {"LUA", 0x140},     {"MAU", 0x150}};

/// Brackets a section of the file.
void BeginSection(DxfOut& out, const char* name);
void EndSection(DxfOut& out);
