#include "host/companion/alignment.h"
#include "host/companion/measure_point.h"
#include "host/text.h"
#include "sections/remembered_settings.h"
#include "sections/scan.h"
#include "sections/scan_steps.h"

#include <algorithm>
#include <array>

namespace
{

constexpr int kCodeField = 1;
constexpr std::array<std::u16string_view, 6> kIgnoredCodes{u"MT1", u"MP1", u"MT2", u"MP2", u"MT3", u"MP3"};
constexpr std::array<std::u16string_view, 4> kDcCodes{u"DC1", u"DC_T", u"DC_P", u"DC2"};
constexpr std::array<const char16_t*, 2> kDefaultCodes{u"DC1", u"DC2"};

template <class Codes>
bool isOneOf(const Codes& codes, std::u16string_view code)
{
    return std::any_of(codes.begin(), codes.end(), [&](std::u16string_view each) { return equalNoCase(each, code); });
}

BlockFcode& addRow(ListBlockFcode& rows, const std::u16string& code, double offset, const NameSet& remembered)
{
    BlockFcode& row = rows.append();
    row.m_strFcode = code;
    row.m_dOffset = offset;
    RememberedSettings::apply(remembered, code, row);
    return row;
}

void addPoint(const PlxDbMeasurePointObj& point, const std::u16string& code, const RememberedSettings& remembered,
              CrossSectionXdata& section)
{
    const AcGePoint3d position = point.GetPoint();
    const double offset = SignedOffset(section.m_ptCenter, section.m_vecDir, position);
    addRow(section.m_listBlockFcode1, code, offset, remembered.sectionCodes);
    addRow(section.m_listBlockFcode2, code, offset, remembered.planCodes).m_ptPosition = position;
}

} // namespace

void AddSurveyPointRows(const SectionRecord& record, const RememberedSettings& remembered, CrossSectionXdata& section)
{
    bool hasDcPoint = false;
    for (const AcDbObjectId id : record.pointIds)
    {
        const AcDbObjectPointer<PlxDbMeasurePointObj> point(id);
        if (!point)
            continue;
        const std::u16string code = point->Get(kCodeField);
        if (code.empty() || isOneOf(kIgnoredCodes, code))
            continue;
        hasDcPoint = hasDcPoint || isOneOf(kDcCodes, code);
        addPoint(*point, code, remembered, section);
    }
    if (hasDcPoint || record.dcOffsets.size() < kDefaultCodes.size())
        return;
    for (size_t index = 0; index < kDefaultCodes.size(); ++index)
        addRow(section.m_listBlockFcode1, kDefaultCodes[index], record.dcOffsets[index], remembered.sectionCodes);
}
