#pragma once

#include "desktop/view/scene.h"
#include "picture/page/page.h"
#include "sections/database_cs.h"

#include <map>
#include <optional>
#include <vector>

class AcApDocument;

namespace desktop
{

/// One section among those of a drawing.
struct SectionPlace
{
    size_t line = 0;    ///< alignment
    size_t section = 0; ///< of it

    friend bool operator==(const SectionPlace&, const SectionPlace&) = default;
};

/// The alignments and cross-sections of a drawing with what was found on each: a scan of its own, which leaves the
/// module's as it is, and what of the drawing belongs to each section's own picture.
class ScannedSections
{
public:
    /// Scans the current document, the objects near the sections included, within the distances of the user's settings.
    void scan(AcApDocument& document);
    void clear();

    const ListItemReferenceLine& lines() const { return m_tree.m_listReferenceLines; }
    ItemReferenceLine& line(size_t index) { return m_tree.m_listReferenceLines[index]; }
    const CrossSectionXdata& section(const SectionPlace& place) const
    {
        return lines()[place.line].m_listCrossSections[place.section];
    }
    bool has(const SectionPlace& place) const
    {
        return place.line < lines().size() && place.section < lines()[place.line].m_listCrossSections.size();
    }
    /// The section that is so many behind (before) another one, over the ends of alignments; nothing beyond the last.
    std::optional<SectionPlace> beside(const SectionPlace& place, long by) const;
    /// The section of that name, of that alignment; nothing when there is none.
    std::optional<SectionPlace> find(const std::u16string& line, const std::u16string& section) const;

    /// What of model space is the section's own drawing; empty for one without a ground line.
    Box2d frame(Scene& scene, const SectionPlace& place);
    /// The section's line in the plan, from A to B, as far as its search reaches.
    Box2d planBox(const SectionPlace& place) const;
    /// All that the sections remember as drawn on them.
    std::vector<AcDbObjectId> drawn() const;
    /// The drawing's change count when it was scanned.
    uint64_t seen() const { return m_seen; }

private:
    DatabaseCS m_tree;
    std::map<size_t, std::vector<picture::Page>> m_pages; ///< by alignment
    uint64_t m_seen = 0;
};

} // namespace desktop
