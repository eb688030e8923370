#include "host/ui/dialog.h"
#include "resources/control_ids.h"
#include "resources/dialog_templates.h"
#include "resources/string_table.h"
#include "util/tcvn3.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <set>

namespace
{

constexpr int kDialogs[] = {kSectionsDialog,   kSettingsDialog, kSymbolPage,     kGeneralPage,
                            kSectionFcodePage, kPlanFcodePage,  kPlanTableDialog};

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
    EXPECT_EQ(DecodeStoredText(FindDialogTemplate(kSettingsDialog)->caption, 63),
              u"Cài đặt tham số địa vật trên trắc ngang");
    EXPECT_EQ(captionOf(kSectionsDialog, IDOK), u"Đóng");
    EXPECT_EQ(captionOf(kGeneralPage, control_ids::general::kForwardLabel), u"K.cách trước");
    EXPECT_EQ(captionOf(kSectionFcodePage, control_ids::table::kSaveFile), u"Lưu tệp");
    EXPECT_EQ(captionOf(kPlanTableDialog, control_ids::table::kOpenFile), u"Mở tệp");
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
