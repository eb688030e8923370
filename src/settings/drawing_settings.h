#pragma once

#include "host/db/object_id.h"
#include "settings/library_lines.h"

#include <optional>
#include <string>
#include <vector>

/// What a drawing keeps of the settings dialog for one of its alignments, as lines of text; saved with the drawing.
/// Only the current drawing is read and written: an id of another one counts as null.

/// The lines kept for an alignment; none when there are none, or for a null id.
std::vector<std::u16string> ReadDrawingSettings(AcDbObjectId alignment);

/// The numbers of the general settings among them; nothing when the general page would take none from them.
std::optional<GeneralTexts> ReadDrawingNumbers(AcDbObjectId alignment);

/// Replaces the lines kept for an alignment, under the document lock. No lines, or a null id: what is kept stays.
void WriteDrawingSettings(AcDbObjectId alignment, const std::vector<std::u16string>& lines);
