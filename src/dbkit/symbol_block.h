#pragma once

#include "dbkit/symbol_look.h"
#include "host/db/entity/block_reference.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>

/// The block that a symbol file becomes: the last level of its path, behind either separator, without its last four
/// characters, the ending.
std::u16string SymbolBlockName(std::u16string_view path);

/// Whether a block of a drawing may stand for a symbol file of its name: not one of the drawing's own, "*Model_Space".
bool CanNameSymbolBlock(std::u16string_view name);

/// The block definition of a symbol file in the current drawing. A block of its name that is there already is the one,
/// whatever it holds; else the file is read and inserted. Nothing when that fails. The caller holds the document lock.
std::optional<AcDbObjectId> LoadSymbolBlock(const std::u16string& path);

/// A fresh reference to a symbol's block, with the scales and rotation of a look.
std::unique_ptr<AcDbBlockReference> MakeSymbol(const AcGePoint3d& point, AcDbObjectId block, const SymbolLook& look);
