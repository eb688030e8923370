#include "files/dxf/count_check.h"

#include "store/numbers.h"
#include "store/tags.h"

#include <array>
#include <optional>

namespace files
{

namespace
{

/// A list inside an object: the code that says its length, the code of its items, and what the items are.
struct CountedList
{
    int countCode;
    int itemCode;
    const char* items;
};

constexpr CountedList kVertices{90, 10, "vertices"};
constexpr CountedList kSections{90, 2, "section records"};
/// The lists of one section record of an alignment.
constexpr std::array<CountedList, 3> kSectionLists{{
    {91, 330, "survey points"},
    {92, 43, "offsets"},
    {93, 331, "drawn objects"},
}};

std::string mismatch(const CountedList& list, int64_t said, int64_t found)
{
    return "damaged: " + std::to_string(said) + " " + list.items + " announced, " + std::to_string(found) + " found";
}

std::string checkVertices(std::string_view pairs)
{
    TagReader reader{pairs};
    std::optional<int64_t> said;
    int64_t found = 0;
    for (Tag tag; reader.next(tag);)
        if (tag.code == kVertices.itemCode)
            ++found;
        else if (tag.code == kVertices.countCode && !said)
            said = dxf::readInteger(tag.value);
    return said && *said != found ? mismatch(kVertices, *said, found) : std::string{};
}

/// Counts as it goes: within the alignment's own part, a section record starts at each code 2.
class AlignmentCheck
{
public:
    std::string run(std::string_view pairs)
    {
        TagReader reader{pairs};
        bool inside = false;
        for (Tag tag; reader.next(tag);)
        {
            if (tag.code == 100)
                inside = tag.word() == "PlxDbAlignment";
            else if (tag.code == 1001)
                break;
            else if (inside && !take(tag))
                return m_wrong;
        }
        if (!finishSection())
            return m_wrong;
        return m_said && *m_said != m_sections ? mismatch(kSections, *m_said, m_sections) : std::string{};
    }

private:
    bool take(const Tag& tag)
    {
        if (tag.code == kSections.countCode && !m_said)
            m_said = dxf::readInteger(tag.value);
        else if (tag.code == kSections.itemCode)
        {
            if (!finishSection())
                return false;
            ++m_sections;
        }
        for (size_t i = 0; i < kSectionLists.size(); ++i)
            if (tag.code == kSectionLists[i].countCode)
                m_expected[i] = dxf::readInteger(tag.value);
            else if (tag.code == kSectionLists[i].itemCode && m_sections > 0)
                ++m_found[i];
        return true;
    }

    bool finishSection()
    {
        for (size_t i = 0; i < kSectionLists.size(); ++i)
        {
            if (m_expected[i] && *m_expected[i] != m_found[i])
                m_wrong = mismatch(kSectionLists[i], *m_expected[i], m_found[i]) + " in section record " +
                          std::to_string(m_sections);
            m_expected[i] = m_found[i] = 0;
        }
        return m_wrong.empty();
    }

    std::optional<int64_t> m_said;
    int64_t m_sections = 0;
    std::array<std::optional<int64_t>, 3> m_expected{0, 0, 0}; ///< nothing for a count that is no number
    std::array<int64_t, 3> m_found{};
    std::string m_wrong;
};

} // namespace

bool hasCounts(std::string_view dxfName)
{
    return dxfName == "LWPOLYLINE" || dxfName == "PLXDBALIGNMENT";
}

std::string checkCounts(std::string_view dxfName, std::string_view pairs)
{
    return dxfName == "LWPOLYLINE" ? checkVertices(pairs) : AlignmentCheck{}.run(pairs);
}

} // namespace files
