#include "desktop/sections/findings.h"

#include "console/findings/section_findings.h"
#include "desktop/language/message.h"
#include "desktop/language/qt_text.h"
#include "host/companion/alignment.h"
#include "host/db/damage.h"
#include "host/db/database.h"
#include "sectiondraw/ground_line.h"

#include <cmath>
#include <set>

namespace desktop
{

namespace
{

QString offsetShown(double offset)
{
    return (offset > 0.0 ? "+" : "") + QString::number(offset, 'f', 2);
}

/// Gathers what is found, kind by kind.
class Faults
{
public:
    Faults(const ScannedSections& sections, const host::DamageLog& damage, Scene& scene)
        : m_sections{sections}, m_damage{damage}, m_scene{scene}
    {
    }

    std::vector<FoundFault> gather()
    {
        addAlignments();
        addGround();
        console::SectionFindings findings;
        console::FeatureKinds every;
        every.fill(true);
        for (const ItemReferenceLine& line : m_sections.lines())
            findings.add(line, every);
        addRows(findings);
        addDamage();
        addNotes();
        return std::move(m_faults);
    }

private:
    void add(const QString& text, std::optional<SectionPlace> section = {}, std::optional<double> offset = {})
    {
        m_faults.push_back({text, section, offset, {}});
    }

    static QString nameOf(const console::SectionName& place)
    {
        return QString::fromStdString(place.alignment + " " + place.section);
    }
    std::optional<SectionPlace> placeOf(const console::SectionName& place) const
    {
        return m_sections.find(toUtf16(place.alignment), toUtf16(place.section));
    }

    void addAlignments()
    {
        std::set<std::u16string, LessNoCase> seen;
        for (size_t i = 0; i < m_sections.lines().size(); ++i)
        {
            const ItemReferenceLine& line = m_sections.lines()[i];
            const QString name = toQString(line.m_strName);
            const bool hasSections = !line.m_listCrossSections.empty();
            const std::optional<SectionPlace> first = hasSections ? std::optional{SectionPlace{i, 0}} : std::nullopt;
            if (!seen.insert(line.m_strName).second)
                add(msg("%1: an earlier alignment has this name, and this one cannot be chosen").arg(name), first);
            if (!hasSections)
                add(msg("%1 has no cross-section").arg(name));
            else if (!(line.m_listCrossSections[0].m_dScale > 0.0) ||
                     !std::isfinite(line.m_listCrossSections[0].m_dScale))
                add(msg("%1: its scale is none that sections can be drawn in").arg(name), first);
        }
    }

    void addGround()
    {
        for (size_t i = 0; i < m_sections.lines().size(); ++i)
            for (size_t j = 0; j < m_sections.lines()[i].m_listCrossSections.size(); ++j)
            {
                const CrossSectionXdata& section = m_sections.lines()[i].m_listCrossSections[j];
                const QString name = toQString(m_sections.lines()[i].m_strName) + " " + toQString(section.m_strName);
                if (!GroundLine{section}.isReadable())
                    add(msg("%1 has no ground line").arg(name), SectionPlace{i, j});
                else
                    for (const std::string& feature : console::withoutGround(section))
                        add(msg("%1: no ground under %2").arg(name, QString::fromStdString(feature)),
                            SectionPlace{i, j});
            }
    }

    void addRows(const console::SectionFindings& findings)
    {
        for (const console::PointOnWrongSide& each : findings.wrongSides)
            add(msg("%1: point %2 at %3 lies on the other side, %4 off the section")
                    .arg(nameOf(each.place), QString::fromStdString(each.code), offsetShown(each.offset),
                         QString::number(each.distance, 'f', 3)),
                placeOf(each.place), each.offset);
        for (const console::CoincidingRows& each : findings.coinciding)
            add(msg("%1: %2 stands %3 times at %4")
                    .arg(nameOf(each.place), QString::fromStdString(each.name), QString::number(each.count),
                         offsetShown(each.offset)),
                placeOf(each.place), each.offset);
        for (const console::RaisedSection& each : findings.raised)
            add(msg("%1: the section line lies at heights %2 and %3, so that all offsets are positive")
                    .arg(nameOf(each.place), QString::number(each.heightA), QString::number(each.heightB)),
                placeOf(each.place));
        for (const auto& [row, rotation] : findings.wideRotations)
            add(msg("%1 is turned by %2: radians are meant").arg(toQString(row.second), QString::number(rotation)));
    }

    void addDamage()
    {
        for (const host::Damage& each : m_damage.met())
            if (each.database == &m_scene.database() && each.record != nullptr)
                m_faults.push_back({msg("Damaged: %1").arg(QString::fromStdString(each.place + each.text)),
                                    {},
                                    {},
                                    AcDbObjectId{const_cast<ObjectRecord*>(each.record)}});
    }

    void addNotes()
    {
        for (const auto& [kind, count] : m_scene.notes().undrawn)
            add(msg("Not drawn: %1 (%2)").arg(QString::fromStdString(kind), QString::number(count)));
        for (const std::string& text : m_scene.notes().texts)
            add(msg("Not shown as it is: %1").arg(QString::fromStdString(text)));
    }

    const ScannedSections& m_sections;
    const host::DamageLog& m_damage;
    Scene& m_scene;
    std::vector<FoundFault> m_faults;
};

} // namespace

std::vector<FoundFault> faultsOf(const ScannedSections& sections, const host::DamageLog& damage, Scene& scene)
{
    const host::InPassing inPassing;
    return Faults{sections, damage, scene}.gather();
}

} // namespace desktop
