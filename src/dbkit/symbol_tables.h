#pragma once

#include "host/db/object_id.h"

#include <string>
#include <string_view>
#include <vector>

class AcDbDatabase;
class CComboBox;

/// The named tables of a drawing (layers, text styles, ...): looking names up, listing them, and making sure that a
/// layer or a text style exists. "The drawing" is the current one unless a database is given. Nothing is reported: what
/// cannot be opened gives a null id, an empty name or no names, and makes nothing.

/// The text style of all labels.
inline constexpr const char16_t* kLabelTextStyle = u"MADIAVATTN";

/// The kinds of tables. Any other number is a table that there is not.
enum class SymbolTable
{
    kTextStyles = 0,
    kLayers = 1,
    kLinetypes = 2,
    kDimStyles = 3,
    kViews = 4,
    kUcs = 5,
    kViewports = 6,
    kBlocks = 7
};

/// The id of the record of that name, erased ones left out; null when there is none.
AcDbObjectId GetSymbolId(const std::u16string& name, SymbolTable kind, AcDbDatabase* database = nullptr);

/// Appends the names of a table in its order, erased records left out. Answers how many.
int ListSymbolNames(std::vector<std::u16string>& names, SymbolTable kind, AcDbDatabase* database = nullptr);

/// Adds the names of a table of the drawing to a drop-down list and selects the one whose id is `selected`, or none.
/// Answers the ids of the added items in their order.
AcDbObjectIdArray FillSymbolCombo(CComboBox& combo, SymbolTable kind, AcDbObjectId selected);

/// Makes a layer of that name unless there is one, thawed, on and unlocked, with the linetype "CONTINUOUS". An empty
/// name makes nothing.
void EnsureLayer(const std::u16string& name);

/// Makes a text style of that name unless there is one, with the label font beside the module and no height of its
/// own.
void EnsureTextStyle(const std::u16string& name);

/// Appends the names of the drawing's layers in table order.
void ListLayerNames(std::vector<std::u16string>& names);

/// The name of the layer that new entities are put on; empty when it cannot be read.
std::u16string CurrentLayerName();

/// The id of a text style, an erased one included; null when there is none.
AcDbObjectId GetTextStyleId(const std::u16string& name);
