#include "console/findings/section_findings.h"

#include "host/companion/alignment.h"
#include "sections/records.h"

#include <cmath>
#include <numbers>

namespace console
{

namespace
{

constexpr double kSamePlace = 0.001; ///< the tolerance by which sides are told
constexpr double kNoHeight = 1e-6;
constexpr double kWholeTurn = 2.0 * std::numbers::pi;

/// One row that is drawn on a section, whatever list it stands in.
struct DrawnRow
{
    FeatureKind kind;
    const std::u16string& name;
    const SymbolLook& look;
    double offset;
};

template <class Action>
void forEachRow(const CrossSectionXdata& section, Action action)
{
    for (const ListBlockData* rows : {&section.m_listBlockData1, &section.m_listBlockData2})
        for (const BlockData& row : *rows)
            action(DrawnRow{kNames, row.m_strName, row, row.m_dOffset1});
    for (const BlockFcode& row : section.m_listBlockFcode1)
        action(DrawnRow{kSectionCodes, row.m_strFcode, row, row.m_dOffset});
}

void addSides(SectionFindings& findings, const SectionName& place, const CrossSectionXdata& section)
{
    for (const BlockFcode& row : section.m_listBlockFcode2)
    {
        ++findings.points;
        const double x = row.m_ptPosition.x - section.m_ptCenter.x;
        const double y = row.m_ptPosition.y - section.m_ptCenter.y;
        const double towardsA = x * section.m_vecDir.x + y * section.m_vecDir.y;
        if (towardsA > kSamePlace && row.m_dOffset > 0.0)
            findings.wrongSides.push_back({place, toUtf8(row.m_strFcode), row.m_dOffset,
                                           std::abs(x * section.m_vecDir.y - y * section.m_vecDir.x)});
    }
}

void addCoinciding(SectionFindings& findings, const SectionName& place, const CrossSectionXdata& section)
{
    std::map<std::u16string, std::map<double, size_t>, LessNoCase> counts;
    forEachRow(section,
               [&](const DrawnRow& row) { ++counts[row.name][std::round(row.offset / kSamePlace) * kSamePlace]; });
    for (const auto& [name, places] : counts)
        for (const auto& [offset, count] : places)
            if (count > 1)
                findings.coinciding.push_back({place, toUtf8(name), offset, count});
}

void addRows(SectionFindings& findings, const SectionName& place, const CrossSectionXdata& section,
             const FeatureKinds& drawn)
{
    std::set<std::u16string> files;
    const auto note = [&](FeatureKind kind, const std::u16string& name, const SymbolLook& look)
    {
        if (!look.m_strFile.empty() && drawn[kind])
            files.insert(look.m_strFile);
        if (isWideRotation(look.m_dRotation))
            findings.wideRotations[{kind, name}] = look.m_dRotation;
    };
    forEachRow(section,
               [&](const DrawnRow& row)
               {
                   ++findings.rows;
                   note(row.kind, row.name, row.look);
               });
    for (const BlockFcode& row : section.m_listBlockFcode2)
        note(kPlanCodes, row.m_strFcode, row);
    for (const std::u16string& file : files)
        findings.sectionsOfFile[file].push_back(place);
}

void addRaised(SectionFindings& findings, const std::string& name, const PlxDbAlignment& alignment)
{
    for (const SectionRecord& section : alignment.sections())
        if (std::abs(section.pointA.z) > kNoHeight || std::abs(section.pointB.z) > kNoHeight)
            findings.raised.push_back({{name, toUtf8(section.name)}, section.pointA.z, section.pointB.z});
}

} // namespace

bool isWideRotation(double radians)
{
    return std::abs(radians) > kWholeTurn;
}

void SectionFindings::add(const ItemReferenceLine& line, const FeatureKinds& drawn)
{
    const std::string name = toUtf8(line.m_strName);
    for (const CrossSectionXdata& section : line.m_listCrossSections)
    {
        const SectionName place{name, toUtf8(section.m_strName)};
        addRows(*this, place, section, drawn);
        addSides(*this, place, section);
        addCoinciding(*this, place, section);
    }
    if (const AcDbObjectPointer<PlxDbAlignment> alignment{line.m_idAlignment}; alignment)
        addRaised(*this, name, *alignment);
}

size_t SectionFindings::superfluousRows() const
{
    size_t superfluous = 0;
    for (const CoincidingRows& each : coinciding)
        superfluous += each.count - 1;
    return superfluous;
}

} // namespace console
