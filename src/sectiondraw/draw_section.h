#pragma once

struct CrossSectionXdata;
struct DrawingRun;

/// Draws the features of a section: its symbols and labels onto its ground line, the symbols of its survey points onto
/// the plan. Every entity is remembered by the section, in the order of placing. Silent: a row whose symbol file cannot
/// be used, or that finds no ground, is left out.
void DrawCrossSection(CrossSectionXdata& section, DrawingRun& run);
