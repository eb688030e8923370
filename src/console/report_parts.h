#pragma once

#include "console/feature_counts.h"
#include "console/program.h"
#include "console/report.h"
#include "console/row_file.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

class AcDbDatabase;

namespace console
{

/// Sentences for a person on what the module passes over in silence.
using Notes = std::vector<std::string>;

/// Each symbol drawing that could not be read in the session, once, with the reason.
std::vector<UnreadableSymbol> unreadableSymbols(host::Session& session);

/// The drawing came from a DWG: it was converted, and what that may lose.
void noteConversion(Notes& notes, const std::string& drawing);

/// The layer that the settings choose for the name labels does not exist.
void noteLabelLayer(Notes& notes, AcDbDatabase& database);

/// Names of a kind that hold characters without an 8-bit form; `what` says what they are ("the label").
void noteLostTexts(Notes& notes, const FeatureCounts& features, FeatureKind kind, const std::string& what);

/// What is wrong with the rows of a library or table, and which of them nothing in the drawing uses; `nearby` says
/// whether the features hold the objects near the sections.
void noteRows(Notes& notes, const RowFile& file, const FeatureCounts& features, bool nearby);

/// A file of the settings folder that a run should write: notices whether it does.
class KeptFile
{
public:
    /// Looks at the file before the run; a session is running.
    explicit KeptFile(const std::u16string& name);

    bool existed() const { return m_before.has_value(); }
    /// The run is over and the file was not written.
    void noteUnkept(Notes& notes) const;

private:
    std::string m_path;
    std::optional<std::filesystem::file_time_type> m_before; ///< when it was written last
};

/// Failure that names an unreadable symbol file, when the user asked for that.
void failWhenStrict(const std::vector<UnreadableSymbol>& unreadable, bool strict);

/// Adds the folder of a library or table file, and its `symbols` folder, to those in which symbol files are looked for.
void addFoldersOf(const std::string& file, std::vector<std::string>& folders);

} // namespace console
