#include "survey/read/table/table_parts.h"

#include "store/text/text.h"
#include "survey/line/station_text.h"
#include "survey/read/section_order.h"

#include <algorithm>

namespace survey
{

namespace
{

/// Sections row by row: those that follow one another with the same name and station are one.
class SectionCollector
{
public:
    SectionCollector(Survey& survey, FindingList& findings, const Table& table)
        : m_survey{survey}, m_findings{findings}, m_table{table}, m_first{survey.sections.size()}
    {
    }

    void take(const Row& row)
    {
        const std::string key =
            std::string{m_table.columns.field(row, 'P')} + '\n' + std::string{m_table.columns.field(row, 'S')};
        if (m_survey.sections.size() == m_first || (key != "\n" && key != m_key))
        {
            if (key == "\n")
            {
                m_findings.unusable(row.line, "no section is named yet");
                return;
            }
            begin(row);
            m_key = key;
        }
        addPoint(row);
    }

    /// After the last row.
    void finish()
    {
        auto& sections = m_survey.sections;
        for (size_t i = m_first; i < sections.size(); ++i)
        {
            std::erase_if(sections[i].ground, [](const auto& piece) { return piece.empty(); });
            orderGround(sections[i]);
        }
    }

private:
    void begin(const Row& row)
    {
        GivenSection& section = m_survey.sections.emplace_back();
        section.place = m_findings.place(row.line);
        section.ground.emplace_back();
        section.name = toUtf16(m_table.columns.field(row, 'P'));
        const std::string_view station = m_table.columns.field(row, 'S');
        const auto written = readStation(station);
        section.hasDistance = written.has_value();
        if (written)
        {
            section.distance = written->value * m_table.metres;
            section.region = written->region;
        }
        else if (section.name.empty())
            section.name = toUtf16(station);
        const std::string what = "section " + quoted(section.name.empty() ? toUtf16(station) : section.name);
        tellRepeated(section, what, row.line);
    }

    /// A section that stands further up as well.
    void tellRepeated(const GivenSection& section, const std::string& what, uint32_t line)
    {
        const auto& sections = m_survey.sections;
        const auto isSame = [&](const GivenSection& other)
        {
            return section.name.empty() ? other.hasDistance && section.hasDistance && other.name.empty() &&
                                              other.distance == section.distance && other.region == section.region
                                        : equalNoCase(section.name, other.name);
        };
        const auto found = std::find_if(sections.begin() + static_cast<ptrdiff_t>(m_first), sections.end() - 1, isSame);
        if (found != sections.end() - 1)
            m_findings.unusable(line, what + " began on line " + std::to_string(found->place.line) + " already");
    }

    /// A row without an elevation is a gap in the ground.
    void addPoint(const Row& row)
    {
        std::vector<std::vector<SectionPoint>>& ground = m_survey.sections.back().ground;
        const std::string_view elevation = m_table.columns.field(row, 'Z');
        if (elevation.empty() || elevation == "-")
        {
            ground.emplace_back();
            return;
        }
        const auto offset = numberIn(m_findings, m_table, row, 'O', "the offset");
        const auto height = numberIn(m_findings, m_table, row, 'Z', "the elevation");
        if (!offset || !height)
            return;
        ground.back().push_back({*offset * m_table.metres, *height * m_table.metres,
                                 m_table.columns.codes(row, m_table.separator), m_findings.place(row.line)});
    }

    Survey& m_survey;
    FindingList& m_findings;
    const Table& m_table;
    size_t m_first;
    std::string m_key;
};

} // namespace

void readSectionRows(Survey& survey, FindingList& findings, const Table& table)
{
    SectionCollector collector{survey, findings, table};
    for (const Row& row : table.rows)
        collector.take(row);
    collector.finish();
}

} // namespace survey
