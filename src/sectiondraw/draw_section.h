#pragma once

struct BlockData;
struct BlockFcode;
struct CrossSectionXdata;
struct DrawingRun;

/// Draws the features of a section: its symbols and labels onto its ground line, the symbols of its survey points onto
/// the plan. Every entity is remembered by the section, in the order of placing. Silent: a row whose symbol file cannot
/// be used, or that finds no ground, is left out.
void DrawCrossSection(CrossSectionXdata& section, DrawingRun& run);

/// A feature at its one or two crossings: its blocks, then its labels. All of the row goes when its symbol file cannot
/// be used, or when the ground line cannot be read.
void PlaceSymbolRow(const BlockData& row, CrossSectionXdata& section, DrawingRun& run);

/// A survey point on the ground line: its block, then its label. The labels of the points "DC1" and "DC2" are marked.
void PlaceFcodeRow(const BlockFcode& row, CrossSectionXdata& section, DrawingRun& run);

/// The block of a survey point, where the point is in the plan.
void PlaceFcodeBlockRow(const BlockFcode& row, CrossSectionXdata& section, DrawingRun& run);
