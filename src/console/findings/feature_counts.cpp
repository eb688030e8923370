#include "console/findings/feature_counts.h"

#include "sectiondraw/ground_line.h"
#include "sections/records.h"

namespace console
{

void FeatureCounts::add(FeatureKind kind, const std::u16string& name, const std::u16string& file, size_t count)
{
    kinds[kind][name][file] += count;
    texts[kind].insert(name);
}

void FeatureCounts::add(const CrossSectionXdata& section, const FeatureKinds& wanted)
{
    const auto note = [&](FeatureKind kind, const std::u16string& name, const std::u16string& file)
    {
        if (wanted[kind])
            add(kind, name, file);
    };
    for (const ListBlockData* rows : {&section.m_listBlockData1, &section.m_listBlockData2})
        for (const BlockData& row : *rows)
            note(kNames, row.m_strName, row.m_strFile);
    for (const BlockFcode& row : section.m_listBlockFcode1)
        note(kSectionCodes, row.m_strFcode, row.m_strFile);
    for (const BlockFcode& row : section.m_listBlockFcode2)
        note(kPlanCodes, row.m_strFcode, row.m_strFile);
}

std::vector<std::u16string> FeatureCounts::files() const
{
    std::set<std::u16string> files;
    for (const FilesByName& kind : kinds)
        for (const auto& [name, counts] : kind)
            for (const auto& [file, count] : counts)
                if (!file.empty())
                    files.insert(file);
    return {files.begin(), files.end()};
}

std::vector<std::string> withoutGround(const CrossSectionXdata& section)
{
    std::set<std::string> names;
    GroundLine ground(section);
    const auto probe = [&](const std::u16string& name, double offset)
    {
        if (!ground.FindGroundPoint(offset))
            names.insert(toUtf8(name));
    };
    for (const ListBlockData* rows : {&section.m_listBlockData1, &section.m_listBlockData2})
        for (const BlockData& row : *rows)
        {
            probe(row.m_strName, row.m_dOffset1);
            if (row.m_dOffset2 != 0.0)
                probe(row.m_strName, row.m_dOffset2);
        }
    for (const BlockFcode& row : section.m_listBlockFcode1)
        probe(row.m_strFcode, row.m_dOffset);
    return {names.begin(), names.end()};
}

} // namespace console
