#include "console/report/report_parts.h"

#include "console/findings/spaces.h"
#include "console/program/damage.h"
#include "console/report/rows_json.h"
#include "console/text/lost_text.h"
#include "files/reader.h"
#include "host/app/symbol_search.h"
#include "host/companion/alignment.h"
#include "host/db/database.h"
#include "sectiondraw/draw_style.h"
#include "sections/database_cs.h"
#include "store/table_index.h"
#include "util/document_lock.h"

#include <algorithm>
#include <set>
#include <sstream>

namespace console
{

namespace
{

/// "2 LIGHT, 1 WIPEOUT"
std::string listed(const CountsByKind& counts)
{
    std::vector<std::string> kinds;
    for (const auto& [kind, count] : counts)
        kinds.push_back(std::to_string(count) + " " + kind);
    return joined(kinds);
}

} // namespace

std::vector<UnreadableSymbol> unreadableSymbols(host::Session& session)
{
    std::vector<UnreadableSymbol> unreadable;
    std::set<std::string> seen;
    for (const host::UnreadableFile& file : session.unreadableFiles())
        if (seen.insert(toUtf8(file.path)).second)
            unreadable.push_back({toUtf8(file.path), file.reason});
    return unreadable;
}

bool isLive(AcDbObjectId id)
{
    return !id.isNull() && !id.isErased();
}

size_t liveCount(const AcDbObjectIdArray& ids)
{
    return static_cast<size_t>(std::count_if(ids.begin(), ids.end(), isLive));
}

std::string whyUnchangeable(const ItemReferenceLine& line)
{
    const OpenForWrite lock;
    const AcDbObjectPointer<PlxDbAlignment> alignment{line.m_idAlignment, AcDb::kForWrite};
    const std::string name = "the alignment \"" + toUtf8(line.m_strName) + "\"";
    if (alignment.openStatus() == Acad::eOnLockedLayer)
        return name + " is on a locked layer and cannot be changed";
    return alignment ? std::string{} : name + " cannot be changed";
}

void noteConversion(Notes& notes, const std::string& drawing, const AcDbDatabase& database)
{
    constexpr int kR14 = 1014;
    if (!files::isDwgFile(drawing))
        return;
    std::string note = "the drawing is a DWG and was converted to DXF";
    if (const CountsByKind& lost = database.store().lost; !lost.empty())
        note += ", without " + listed(lost);
    if (database.version() <= kR14)
        note += "; layers that are off may be on";
    notes.push_back(note + "; the DWG itself stays as it is");
}

void noteIncomplete(Notes& notes, host::Session& session)
{
    for (const host::IncompleteFile& file : session.incompleteFiles())
        notes.push_back("the block of the symbol file " + toUtf8(file.path) + " is without " + listed(file.missing) +
                        ", which blocks from other drawings cannot hold or the conversion from DWG lost");
}

void noteLayout(Notes& notes, AcDbDatabase& database)
{
    if (const std::string layout = shownLayout(database); !layout.empty())
        notes.push_back("the drawing was saved on the layout \"" + layout +
                        "\", not in model space: symbols go onto that layout, and objects near the sections cannot be "
                        "seen");
}

void noteDamaged(Notes& notes, host::Session& session)
{
    const Notes damaged = damagedInPassing(session);
    notes.insert(notes.end(), damaged.begin(), damaged.end());
}

void noteScale(Notes& notes, const ItemReferenceLine& line)
{
    const AcDbObjectPointer<PlxDbAlignment> alignment{line.m_idAlignment};
    if (!alignment || line.m_listCrossSections.empty() || isUsableScale(line.m_listCrossSections[0].m_dScale))
        return;
    std::ostringstream scale;
    scale << alignment->scaleValue();
    notes.push_back("the alignment \"" + toUtf8(line.m_strName) + "\" has the scale " + scale.str() +
                    ": its sections cannot be drawn to scale");
}

void noteLabelLayer(Notes& notes, AcDbDatabase& database)
{
    const OptionStyle label = MakeDrawStyle(g_DatabaseCS).symbolLabel;
    if (label.on && !label.layer.empty() && database.tables().find("LAYER", label.layer) == nullptr)
        notes.push_back("the layer of the name labels, \"" + toUtf8(label.layer) +
                        "\", does not exist: the labels are on the current layer");
}

void noteLostTexts(Notes& notes, const FeatureCounts& features, FeatureKind kind, const std::string& what)
{
    for (const std::u16string& text : features.texts[kind])
    {
        const std::vector<LostCharacter> lost = lostCharacters(text);
        const std::string note =
            what + " \"" + toUtf8(text) + "\" has characters without an 8-bit form: " + namesOf(lost);
        // A name may be a code as well.
        if (!lost.empty() && std::find(notes.begin(), notes.end(), note) == notes.end())
            notes.push_back(note);
    }
}

void noteRows(Notes& notes, const RowFile& file, const FeatureCounts& features, bool nearby)
{
    notes.insert(notes.end(), file.problems.begin(), file.problems.end());
    std::map<FeatureKind, std::string> unused;
    for (const FileRow& row : file.unused(features))
        unused[row.kind] += (unused[row.kind].empty() ? "" : ", ") + toUtf8(row.key);
    for (const auto& [kind, keys] : unused)
        notes.push_back("rows of " + titleOf(kind) + " that nothing in the drawing uses" +
                        (kind == kNames && !nearby ? " (objects near the sections were not looked for): " : ": ") +
                        keys);
}

void noteSave(Notes& notes, std::string said)
{
    if (!said.empty())
        notes.push_back(std::move(said));
}

std::string unkeptNote(const std::string& path)
{
    return "the settings could not be kept: " + path + " cannot be written";
}

void noteUnkept(Notes& notes, host::Session& session)
{
    for (const std::string& path :
         std::set<std::string>{session.unwrittenFiles().begin(), session.unwrittenFiles().end()})
        notes.push_back(unkeptNote(path));
}

std::string unreadableNote(const std::string& reason)
{
    return "symbol file that cannot be read: " + reason;
}

void failWhenStrict(const std::vector<UnreadableSymbol>& unreadable, bool strict)
{
    if (strict && !unreadable.empty())
        throw Failure{unreadableNote(unreadable.front().reason)};
}

void addFoldersOf(const std::string& file, std::vector<std::string>& folders)
{
    const std::vector<std::string> beside = host::SymbolSearch::foldersBeside(file);
    folders.insert(folders.begin(), beside.begin(), beside.end());
}

} // namespace console
