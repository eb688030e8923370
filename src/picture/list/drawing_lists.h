#pragma once

#include "picture/list/display_list.h"
#include "picture/list/draw_order.h"
#include "picture/look/looks.h"
#include "picture/notes.h"
#include "picture/text/text_style.h"
#include "store/object_id.h"

#include <deque>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

class AcDbDatabase;
struct Container;

namespace picture
{

/// How points are shown, from the drawing's header.
struct PointStyle
{
    int mode = 0;
    double size = 0.0; ///< drawing units; negative: percent of the picture's height; 0: the usual 5 percent
};

/// The entities of model space, also in a drawing that has no table of blocks.
AcDbObjectIdArray modelSpaceOf(AcDbDatabase& database);

/// The display lists of a drawing: one for model space and one for each block that is used, made when first asked for.
/// The drawing must outlive them; one thread.
class DrawingLists
{
public:
    /// `fontFolders` as `TextStyles`. `notes` receives what is not shown as it is.
    DrawingLists(AcDbDatabase& database, std::vector<std::string> fontFolders, Notes& notes);
    DrawingLists(const DrawingLists&) = delete;
    DrawingLists& operator=(const DrawingLists&) = delete;

    DisplayList& modelSpace() { return space(nullptr); }
    /// What stands in a space by its block record, as `spacesOf` names it; model space for null.
    DisplayList& space(const ObjectRecord* block);
    /// The same if it was made already, else null.
    const DisplayList* madeSpace(const ObjectRecord* block) const;
    /// Brings the lists up to date with the drawing: entities that changed get new primitives, blocks whose contents
    /// changed are made anew, and with them the references to them. Answers a box around what looks different, drawing
    /// units (empty: nothing does); nothing when everything may.
    std::optional<Box2d> update();

    DisplayList& list(uint32_t block) { return m_lists[block]; }
    const DisplayList& list(uint32_t block) const { return m_lists[block]; }
    /// How many lists were made; `list` gives them by number.
    uint32_t count() const { return static_cast<uint32_t>(m_lists.size()); }
    /// The list of a block by its name as references write it; `kNone` for one that is not there, that stands around
    /// the block at hand, or that is nested too deep.
    uint32_t blockNamed(std::string_view raw);
    static constexpr uint32_t kNone = 0xFFFFFFFF;

    AcDbDatabase& database() { return m_database; }
    Looks& looks() { return m_looks; }
    const Looks& looks() const { return m_looks; }
    TextStyles& styles() { return m_styles; }
    Notes& notes() { return m_notes; }
    double linetypeScale() const { return m_linetypeScale; }
    const PointStyle& pointStyle() const { return m_pointStyle; }
    bool showsWeights() const { return m_showsWeights; }
    /// Length of a leader's arrowhead, drawing units.
    double arrowSize() const { return m_arrowSize; }
    /// Height of texts in dimensions and tolerances, drawing units.
    double dimensionText() const { return m_dimensionText; }
    /// A metre in drawing units, by $INSUNITS; one unit where that says nothing.
    double metre() const { return m_metre; }

    /// The box of what is shown: layers that are frozen or off left out.
    Box2d shownBox() { return shownBox(modelSpace()); }
    Box2d shownBox(const DisplayList& list) const;
    /// Bytes of all lists together.
    size_t bytes() const;

private:
    friend class ListUpdate;

    /// What a list shows: the contents of a container (of the ENTITIES section those of one space).
    struct Source
    {
        uint32_t container = kNone;
        bool isPaper = false;

        friend auto operator<=>(const Source&, const Source&) = default;
    };
    struct Made
    {
        uint32_t list = kNone;
        bool isOpen = false; ///< being made: what leads back to it ends there
    };

    Source sourceOf(const ObjectRecord* space) const;
    uint32_t listOf(const Source& source);
    void fill(uint32_t list);
    /// The list of model space, for a layout to look at; kNone while that is being made, or from itself.
    uint32_t modelFor(const DisplayList& list);
    /// Whether a list is that of a block, not of a space.
    bool isBlock(uint32_t list) const;
    void readHeader();
    friend class EntityWriter;
    /// An entity shows the contents of a block without referring to its list, or would if there were such a block
    /// (container kNone).
    void noteWrittenOut(uint32_t container, const DisplayList& list);

    AcDbDatabase& m_database;
    Notes& m_notes;
    Looks m_looks;
    TextStyles m_styles;
    DrawOrder m_order;
    std::deque<DisplayList> m_lists;
    std::vector<Source> m_sources; ///< of the lists, by their numbers
    std::map<Source, Made> m_made;
    std::map<uint32_t, std::set<std::pair<uint32_t, ObjectRecord*>>> m_writtenOut; ///< by container: list and entity
    size_t m_depth = 0;
    uint64_t m_seen = 0; ///< the drawing's change count
    double m_linetypeScale = 1.0;
    double m_arrowSize = 0.0;
    double m_dimensionText = 0.0;
    double m_metre = 1.0;
    PointStyle m_pointStyle;
    bool m_showsWeights = false;
};

} // namespace picture
