#pragma once

#include "dbkit/symbol_look.h"
#include "kernel/point3d.h"

#include <array>
#include <optional>
#include <vector>

struct CrossSectionXdata;
struct DrawStyle;
struct OptionStyle;

/// What one row of a section puts onto the drawing: its symbol at each of its places, then its label at each. Refers to
/// the row and to the style that it was made from.
struct RowPlacement
{
    const SymbolLook* symbol = nullptr; ///< null for none
    const OptionStyle* symbolStyle = nullptr;
    const std::u16string* label = nullptr; ///< its text; null for none
    const OptionStyle* labelStyle = nullptr;
    bool isMarked = false; ///< the label's entities are marked with its text, a feature code
    std::array<std::optional<AcGePoint3d>, 2> places;
};

/// What the rows of a section put onto the drawing, in the order in which it is placed: its features, then its survey
/// points, both onto the ground line, then the symbols of these points onto the plan. Rows that give nothing are left
/// out. Changes nothing.
std::vector<RowPlacement> FindPlacements(const CrossSectionXdata& section, const DrawStyle& style);
