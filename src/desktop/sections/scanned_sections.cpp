#include "desktop/sections/scanned_sections.h"

#include "host/app/disk.h"
#include "host/app/document.h"
#include "host/companion/alignment.h"
#include "host/db/damage.h"
#include "host/db/database.h"
#include "picture/page/sections.h"
#include "sections/refresh.h"
#include "sections/scan.h"

#include <algorithm>
#include <numeric>

namespace desktop
{

namespace
{

/// Shows the whole drawing while it lives: what looks for objects near sections sees only what the view shows.
class WholeView
{
public:
    explicit WholeView(View& view) : m_view{view} { m_view.zoomExtents(); }
    ~WholeView() { m_view.zoomPrevious(); }
    WholeView(const WholeView&) = delete;
    WholeView& operator=(const WholeView&) = delete;

private:
    View& m_view;
};

} // namespace

void ScannedSections::scan(AcApDocument& document)
{
    clear();
    m_seen = document.database()->changeCount();
    const host::InPassing inPassing;
    const host::NothingKept noScratch;
    const WholeView whole{document.view()};
    m_tree.m_dForwardDistance = g_DatabaseCS.m_dForwardDistance;
    m_tree.m_dBackwardDistance = g_DatabaseCS.m_dBackwardDistance;
    ScanCrossSections(m_tree);
    RefreshAllSections(m_tree);
}

void ScannedSections::clear()
{
    m_tree.m_listReferenceLines.clear();
    m_pages.clear();
}

std::optional<SectionPlace> ScannedSections::beside(const SectionPlace& place, long by) const
{
    SectionPlace at = place;
    for (; by > 0; --by)
    {
        ++at.section;
        while (at.line < lines().size() && at.section >= lines()[at.line].m_listCrossSections.size())
            at = {at.line + 1, 0};
        if (at.line >= lines().size())
            return std::nullopt;
    }
    for (; by < 0; ++by)
    {
        while (at.section == 0)
        {
            if (at.line == 0)
                return std::nullopt;
            --at.line;
            at.section = lines()[at.line].m_listCrossSections.size();
        }
        --at.section;
    }
    return at;
}

std::optional<SectionPlace> ScannedSections::find(const std::u16string& line, const std::u16string& section) const
{
    for (size_t i = 0; i < lines().size(); ++i)
        if (equalNoCase(lines()[i].m_strName, line))
            for (size_t j = 0; j < lines()[i].m_listCrossSections.size(); ++j)
                if (equalNoCase(lines()[i].m_listCrossSections[j].m_strName, section))
                    return SectionPlace{i, j};
    return std::nullopt;
}

Box2d ScannedSections::frame(Scene& scene, const SectionPlace& place)
{
    const auto [pages, isNew] = m_pages.try_emplace(place.line);
    if (isNew)
        if (const AcDbObjectPointer<PlxDbAlignment> alignment{lines()[place.line].m_idAlignment})
        {
            std::vector<size_t> all(alignment->sections().size());
            std::iota(all.begin(), all.end(), size_t{0});
            pages->second = sectionPages(scene.database(), scene.space(nullptr), *alignment, all);
        }
    return place.section < pages->second.size() ? pages->second[place.section].frame : Box2d{};
}

Box2d ScannedSections::planBox(const SectionPlace& place) const
{
    const CrossSectionXdata& at = section(place);
    const AcGeVector3d reach = at.m_vecDir * std::max({at.m_dExtent1, at.m_dExtent2, 1.0});
    Box2d box;
    for (const AcGePoint3d& end : {at.m_ptCenter + reach, at.m_ptCenter - reach})
        box.add(end.x, end.y);
    return box;
}

std::vector<AcDbObjectId> ScannedSections::drawn() const
{
    std::vector<AcDbObjectId> ids;
    for (const ItemReferenceLine& line : lines())
        if (const AcDbObjectPointer<PlxDbAlignment> alignment{line.m_idAlignment})
            for (const SectionRecord& record : alignment->sections())
                std::copy_if(record.drawnIds.begin(), record.drawnIds.end(), std::back_inserter(ids),
                             [](AcDbObjectId id) { return !id.isNull() && !id.isErased(); });
    return ids;
}

} // namespace desktop
