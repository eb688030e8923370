#include "sections/name_set.h"

#include <gmock/gmock.h>

using testing::ElementsAre;

namespace
{

BlockData row(std::u16string name, double scale)
{
    BlockData data;
    data.m_strName = std::move(name);
    data.m_dScaleX = scale;
    return data;
}

} // namespace

TEST(NameSet, TheFirstRecordOfANameStaysWhateverTheLetterCase)
{
    NameSet names;
    for (const BlockData& data : {row(u"đê", 1), row(u"DC1", 2), row(u"ĐÊ", 3), row(u"dc1", 4), row(u"", 5)})
        names.insert(data);
    BlockFcode point;
    point.m_strFcode = u"Dc1";
    names.insert(point);

    std::vector<std::u16string> listed;
    for (const SetName_Index& record : names)
        listed.push_back(record.m_strName);
    EXPECT_THAT(listed, ElementsAre(u"", u"DC1", u"đê"));
    ASSERT_NE(names.find(u"dc1"), nullptr);
    EXPECT_EQ(names.find(u"dc1")->m_dScaleX, 2);
    EXPECT_EQ(names.find(u"Đê")->m_dScaleX, 1);
    EXPECT_EQ(names.find(u"dc"), nullptr);
}

TEST(NameSet, ARecordCarriesWhatTheUserSetFromRowToRow)
{
    BlockFcode from;
    from.m_strFcode = u"cay";
    from.m_strFile = u"cay.dwg";
    from.m_dScaleX = 2;
    from.m_dScaleY = 3;
    from.m_dRotation = 0.5;
    from.m_dOffset = 7;

    BlockData to;
    to.m_dOffset1 = 9;
    to.look() = SetName_Index(from).look();

    EXPECT_EQ(to.m_strFile, u"cay.dwg");
    EXPECT_THAT((std::vector{to.m_dScaleX, to.m_dScaleY, to.m_dRotation, to.m_dOffset1}), ElementsAre(2, 3, 0.5, 9));
    EXPECT_EQ(to.m_strName, u"");
}

TEST(Records, ATreeOwnsItsRowsAndTheyKeepTheirPlace)
{
    ListItemReferenceLine alignments;
    CrossSectionXdata& section = alignments.append().m_listCrossSections.append();
    const BlockFcode* first = &section.m_listBlockFcode1.append();
    for (int i = 0; i < 1000; ++i)
        alignments[0].m_listCrossSections.append().m_listBlockData2.append(row(u"x", i));
    EXPECT_EQ(&*section.m_listBlockFcode1.begin(), first);

    double sum = 0;
    for (const ItemReferenceLine& alignment : alignments)
        for (const CrossSectionXdata& each : alignment.m_listCrossSections)
            for (const BlockData& data : each.m_listBlockData2)
                sum += data.m_dScaleX;
    EXPECT_EQ(sum, 999.0 * 1000 / 2);

    ListItemReferenceLine moved = std::move(alignments);
    EXPECT_EQ(moved[0].m_listCrossSections.size(), 1001U);
    moved.clear();
    EXPECT_TRUE(moved.empty());
}
