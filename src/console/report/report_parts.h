#pragma once

#include "console/findings/feature_counts.h"
#include "console/findings/row_file.h"
#include "console/program/program.h"
#include "console/report/report.h"
#include "store/object_id.h"

#include <string>
#include <vector>

class AcDbDatabase;
struct ItemReferenceLine;

namespace console
{

/// Sentences for a person on what the module passes over in silence.
using Notes = std::vector<std::string>;

/// Each symbol drawing that could not be read in the session, once, with the reason.
std::vector<UnreadableSymbol> unreadableSymbols(host::Session& session);

/// Whether an id names something that is still there.
bool isLive(AcDbObjectId id);
/// How many of the ids do.
size_t liveCount(const AcDbObjectIdArray& ids);

/// Why nothing can be drawn for an alignment: it cannot be opened for writing. Empty when it can.
std::string whyUnchangeable(const ItemReferenceLine& line);

/// The drawing came from a DWG: it was converted, and what that lost.
void noteConversion(Notes& notes, const std::string& drawing, const AcDbDatabase& database);

/// What the blocks of symbol files lack of what stands in the files.
void noteIncomplete(Notes& notes, host::Session& session);

/// The drawing was saved on a layout: where symbols go, and what is not seen.
void noteLayout(Notes& notes, AcDbDatabase& database);

/// The objects that met nothing because a value in them is damaged.
void noteDamaged(Notes& notes, host::Session& session);

/// The alignment has a scale that no section can be drawn in: 0, negative, or too large or small for a number.
void noteScale(Notes& notes, const ItemReferenceLine& line);

/// The layer that the settings choose for the name labels does not exist.
void noteLabelLayer(Notes& notes, AcDbDatabase& database);

/// Names of a kind that hold characters without an 8-bit form; `what` says what they are ("the label").
void noteLostTexts(Notes& notes, const FeatureCounts& features, FeatureKind kind, const std::string& what);

/// What is wrong with the rows of a library or table, and which of them nothing in the drawing uses; `nearby` says
/// whether the features hold the objects near the sections.
void noteRows(Notes& notes, const RowFile& file, const FeatureCounts& features, bool nearby);

/// What is said of a settings file, library or table that could not be written.
std::string unkeptNote(const std::string& path);

/// The settings files that could not be written in the session, each once.
void noteUnkept(Notes& notes, host::Session& session);

/// Takes what saving had to say, if anything.
void noteSave(Notes& notes, std::string said);

/// What is said of a symbol file that could not be read.
std::string unreadableNote(const std::string& reason);

/// Failure that names an unreadable symbol file, when the user asked for that.
void failWhenStrict(const std::vector<UnreadableSymbol>& unreadable, bool strict);

/// Adds the folder of a library or table file, and its `symbols` folder, to those in which symbol files are looked for.
void addFoldersOf(const std::string& file, std::vector<std::string>& folders);

} // namespace console
