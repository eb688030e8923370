#include "resources/dialog_templates.h"
#include "resources/string_table.h"
#include "util/tcvn3.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <set>

namespace
{

constexpr int kDialogs[] = {192, 193, 194, 195, 196, 197, 199};

std::u16string captionOf(int dialog, int control)
{
    for (const ControlTemplate& each : FindDialogTemplate(dialog)->controls)
    {
        if (each.id == control)
            return DecodeStoredText(each.text, 127);
    }
    return {};
}

} // namespace

TEST(StringTable, TextsReadInVietnamese)
{
    EXPECT_EQ(LoadText(2), u"Tham số vẽ fcode trắc ngang");
    EXPECT_EQ(LoadText(3), u"Tham số tìm kiếm và hiển thị");
    EXPECT_EQ(LoadText(6), u"Tỷ lệ X");
    EXPECT_EQ(LoadText(11), u"Điền tên symbol");
    EXPECT_EQ(LoadText(16), u"Chon tuyen can thao tac");
    EXPECT_EQ(LoadText(20), u"Chèn tại đỉnh pline");
    for (const unsigned id : {0U, 21U, 4294967295U})
        EXPECT_EQ(LoadText(id), u"");
}

TEST(DialogTemplates, CaptionsReadInVietnamese)
{
    EXPECT_EQ(DecodeStoredText(FindDialogTemplate(193)->caption, 63), u"Cài đặt tham số địa vật trên trắc ngang");
    EXPECT_EQ(captionOf(192, 1), u"Đóng");
    EXPECT_EQ(captionOf(195, 1109), u"K.cách trước");
    EXPECT_EQ(captionOf(196, 1082), u"Lưu tệp");
    EXPECT_EQ(captionOf(199, 1095), u"Mở tệp");
    EXPECT_EQ(FindDialogTemplate(198), nullptr);
}

TEST(DialogTemplates, ControlsStandInsideTheirDialogUnderIdsOfTheirOwn)
{
    for (const int id : kDialogs)
    {
        const DialogTemplate* dialog = FindDialogTemplate(id);
        ASSERT_NE(dialog, nullptr) << id;
        std::set<int> ids;
        for (const ControlTemplate& control : dialog->controls)
        {
            EXPECT_TRUE(control.id == kNoControlId || ids.insert(control.id).second) << id << ": " << control.id;
            EXPECT_LE(control.x + control.width, dialog->width) << id << ": " << control.id;
            EXPECT_LE(control.y + control.height, dialog->height) << id << ": " << control.id;
            EXPECT_TRUE(std::all_of(control.text.begin(), control.text.end(), [](char16_t c) { return c < 0x100; }));
        }
    }
}
