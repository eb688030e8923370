#include "desktop/panels/section_actions.h"

#include "desktop/documents/document_tab.h"
#include "desktop/language/message.h"
#include "desktop/language/qt_text.h"
#include "desktop/sections/ground_here.h"
#include "desktop/view/drawing_view.h"
#include "desktop/workspace/workspace.h"
#include "host/app/session.h"
#include "host/db/database.h"
#include "plan/plan_symbols.h"
#include "sectiondraw/alignment_drawing.h"
#include "sectiondraw/ground_line.h"
#include "util/document_lock.h"

#include <cmath>

namespace desktop
{

namespace
{

QString signedNumber(double value)
{
    return (value > 0.0 ? "+" : "") + QString::number(value, 'f', 2);
}

} // namespace

SectionActions::SectionActions(Workspace& workspace, SectionPanel& panel) : m_workspace{workspace}, m_panel{panel}
{
    m_panel.onSection = [this](const SectionPlace& place) { go(place); };
    m_panel.faults().onChosen = [this](const FoundFault& fault) { showFault(fault); };
}

DocumentTab* SectionActions::front() const
{
    DocumentTab* tab = m_workspace.currentTab();
    return tab != nullptr && tab->document() != nullptr ? tab : nullptr;
}

void SectionActions::refresh()
{
    DocumentTab* tab = front();
    if (tab == nullptr)
    {
        m_panel.show(nullptr);
        return;
    }
    SectionsOfTab& sections = tab->sections();
    if (!sections.isScanned || sections.scanned.seen() != tab->document()->database().changeCount())
    {
        m_panel.show(nullptr);
        sections.scanned.scan(tab->document()->host());
        sections.isScanned = true;
        sections.axes.clear();
        for (const ItemReferenceLine& line : sections.scanned.lines())
            sections.axes.emplace_back(line);
        sections.datum.reset();
        if (sections.current && !sections.scanned.has(*sections.current))
            sections.current.reset();
        if (sections.isDrawnHidden)
            hideDrawn(*tab);
    }
    if (m_panel.show(&sections.scanned))
        m_panel.faults().show(faultsOf(sections.scanned, m_workspace.session().damage(), *tab->document()->scene()));
    if (sections.current)
        m_panel.setCurrent(*sections.current);
}

void SectionActions::go(const SectionPlace& place)
{
    DocumentTab* tab = front();
    if (tab == nullptr || !tab->sections().scanned.has(place))
        return;
    SectionsOfTab& sections = tab->sections();
    sections.current = place;
    sections.datum = datumOf(sections.scanned.section(place));
    m_panel.setCurrent(place);
    tab->showModelSpace();
    tab->setSplit(true);
    constexpr double kPlanMargin = 0.6;
    tab->view().zoomTo(sections.scanned.planBox(place), kPlanMargin);
    const Box2d frame = sections.scanned.frame(*tab->document()->scene(), place);
    if (frame.isEmpty())
        m_workspace.say(msg("%1 has no ground line").arg(toQString(sections.scanned.section(place).m_strName)));
    else
        tab->sectionView().zoomTo(frame);
    if (onSection)
        onSection(toQString(sections.scanned.lines()[place.line].m_strName) + " · " +
                  toQString(sections.scanned.section(place).m_strName));
}

void SectionActions::showFault(const FoundFault& fault)
{
    DocumentTab* tab = front();
    if (tab == nullptr)
        return;
    if (!fault.entity.isNull())
    {
        tab->lookAt(tab->view().boxOf({fault.entity}));
        if (onEntity)
            onEntity(fault.entity);
    }
    if (!fault.section)
        return;
    go(*fault.section);
    const CrossSectionXdata& section = tab->sections().scanned.section(*fault.section);
    if (!fault.offset)
        return;
    constexpr double kAround = 5.0; ///< metres of the road, to each side
    const AcGePoint3d plan = section.m_ptCenter + section.m_vecDir * -*fault.offset;
    tab->view().zoomTo({plan.x - kAround, plan.y - kAround, plan.x + kAround, plan.y + kAround});
    const double x = section.m_ptOrigin.x + *fault.offset * section.m_dScale;
    const double around = kAround * section.m_dScale;
    const std::optional<AcGePoint3d> ground = GroundLine{section}.FindGroundPoint(*fault.offset);
    const double y = ground ? ground->y : section.m_ptOrigin.y;
    tab->sectionView().zoomTo({x - around, y - around, x + around, y + around});
}

void SectionActions::step(long by)
{
    DocumentTab* tab = front();
    if (tab == nullptr)
        return;
    refresh();
    SectionsOfTab& sections = tab->sections();
    if (!sections.current)
        return sections.scanned.has({0, 0}) ? go({0, 0}) : m_workspace.say(msg("The drawing has no alignment."));
    if (const std::optional<SectionPlace> next = sections.scanned.beside(*sections.current, by))
        go(*next);
    else
        m_workspace.say(by > 0 ? msg("This is the last section") : msg("This is the first section"));
}

void SectionActions::toggleSplit()
{
    if (DocumentTab* tab = front())
        tab->setSplit(!tab->isSplit());
}

void SectionActions::toggleDrawn()
{
    DocumentTab* tab = front();
    if (tab == nullptr)
        return;
    refresh();
    SectionsOfTab& sections = tab->sections();
    sections.isDrawnHidden = !sections.isDrawnHidden;
    hideDrawn(*tab);
    m_workspace.say(sections.isDrawnHidden ? msg("Before drawing: what was drawn is hidden here, not in the file")
                                           : msg("After drawing: everything is shown"));
}

void SectionActions::hideDrawn(DocumentTab& tab) const
{
    std::unordered_set<AcDbObjectId> entities;
    std::set<std::u16string> layers;
    if (tab.sections().isDrawnHidden)
    {
        const std::vector<AcDbObjectId> drawn = tab.sections().scanned.drawn();
        entities.insert(drawn.begin(), drawn.end());
        layers.insert(kPlanLayer);
    }
    tab.hide(std::move(entities), std::move(layers));
}

void SectionActions::eraseDrawn()
{
    DocumentTab* tab = front();
    if (tab == nullptr)
        return;
    refresh();
    SectionsOfTab& sections = tab->sections();
    if (sections.scanned.lines().empty())
        return m_workspace.say(msg("The drawing has no alignment."));
    const size_t first = sections.current ? sections.current->line : 0;
    const size_t last = sections.current ? first + 1 : sections.scanned.lines().size();
    const OpenForWrite lock;
    for (size_t i = first; i < last; ++i)
    {
        ItemReferenceLine& line = sections.scanned.line(i);
        const QString name = toQString(line.m_strName);
        m_workspace.say((EraseSections(line) ? msg("What was drawn on the sections of %1 is erased")
                                             : msg("%1 cannot be changed; it keeps what it remembers"))
                            .arg(name));
    }
}

double SectionActions::unitOf(DocumentTab& tab)
{
    const SectionsOfTab& sections = tab.sections();
    const double scale = sections.current ? sections.scanned.section(*sections.current).m_dScale : 1.0;
    return std::isfinite(scale) && scale > 0.0 ? 1.0 / scale : 1.0;
}

QString SectionActions::whatIsAt(DocumentTab& tab, const picture::Vertex& place, bool inSectionView)
{
    SectionsOfTab& sections = tab.sections();
    if (!sections.isScanned || !tab.showsModelSpace())
        return {};
    if (inSectionView && sections.current)
        return textOnSection(tab, *sections.current, place);
    for (size_t i = 0; i < sections.axes.size(); ++i)
        if (const auto foot = sections.axes[i].footOf(place))
            return msg("%1: %2, offset %3")
                .arg(toQString(sections.scanned.lines()[i].m_strName), stationShown(foot->station),
                     signedNumber(foot->offset));
    return {};
}

QString SectionActions::textOnSection(DocumentTab& tab, const SectionPlace& section, const picture::Vertex& place)
{
    const std::optional<PlaceOnSection> at = placeOnSection(tab.sections().scanned.section(section), place);
    if (!at)
        return {};
    const std::optional<double> datum = tab.sections().datum;
    const QString ground = at->ground ? QString::number(*at->ground + datum.value_or(0.0), 'f', 2) : QString{"–"};
    return (datum ? msg("Offset %1, ground at elevation %2") : msg("Offset %1, ground %2 over the datum"))
        .arg(signedNumber(at->offset), ground);
}

} // namespace desktop
