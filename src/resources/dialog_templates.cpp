#include "resources/dialog_templates.h"

#include <algorithm>
#include <iterator>

namespace
{

using enum ControlKind;

constexpr std::u16string_view kSaveFile = u"L\u00ADu tÖp";
constexpr std::u16string_view kOpenFile = u"Më tÖp";
constexpr std::u16string_view kClear = u"Xãa";
constexpr std::u16string_view kSetParameters = u"§Æt tham sè";

constexpr ControlTemplate kSectionsControls[] = {
    {1, kDefaultButton, 72, 189, 50, 14, u"§ãng"},
    {1099, kCheckList, 15, 55, 88, 123},
    {1100, kCheckBox, 114, 55, 53, 10, u"Chän tÊt c¶"},
    {1101, kCheckBox, 114, 70, 43, 10, u"Bá chän"},
    {1094, kButton, 114, 128, 50, 14, u"VÏ"},
    {1095, kButton, 114, 146, 50, 14, u"Undo"},
    {1096, kButton, 114, 164, 50, 14, u"Cµi ®Æt"},
    {kNoControlId, kGroupBox, 7, 43, 172, 140, u"Chän c¸c tr¾c ngang cÇn vÏ"},
    {1103, kButton, 129, 189, 50, 14, u"Help"},
    {kNoControlId, kGroupBox, 7, 5, 172, 34, u"Chän tuyÕn"},
    {1113, kDropDownList, 15, 19, 155, 109},
};

constexpr ControlTemplate kSettingsControls[] = {
    {1101, kTabControl, 6, 3, 406, 139},
    {1, kDefaultButton, 252, 146, 50, 14, u"OK"},
    {2, kButton, 307, 146, 50, 14, u"Cancel"},
    {1103, kButton, 362, 146, 50, 14, u"Help"},
};

constexpr ControlTemplate kSymbolControls[] = {
    {1111, kGroupBox, 7, 7, 384, 116, kSetParameters},
    {1082, kButton, 14, 107, 50, 14, kSaveFile},
    {1095, kButton, 71, 107, 50, 14, kOpenFile},
    {1096, kButton, 128, 107, 50, 14, kClear},
    {101, kGrid, 9, 14, 377, 90},
};

constexpr ControlTemplate kFcodeControls[] = {
    {1112, kGroupBox, 7, 7, 384, 116, kSetParameters},
    {1082, kButton, 14, 107, 50, 14, kSaveFile},
    {1095, kButton, 71, 107, 50, 14, kOpenFile},
    {1096, kButton, 128, 107, 50, 14, kClear},
    {101, kGrid, 9, 14, 377, 90},
};

constexpr ControlTemplate kGeneralControls[] = {
    {1108, kGroupBox, 7, 3, 147, 30, u"Vïng t×m kiÕm ®Þa vËt"},
    {1109, kLabel, 12, 18, 40, 8, u"K.c¸ch tr\u00ADíc"},
    {1102, kEdit, 53, 15, 28, 14},
    {1110, kLabel, 84, 18, 38, 8, u"K.c¸ch sau"},
    {1104, kEdit, 123, 15, 28, 14},
    {kNoControlId, kGroupBox, 153, 3, 238, 30, u"Tham sè ®iÒn text"},
    {kNoControlId, kLabel, 161, 18, 31, 8, u"Cao ch÷"},
    {1095, kEdit, 193, 15, 28, 14},
    {kNoControlId, kLabel, 228, 18, 35, 8, u"KiÓu ch÷"},
    {1115, kDropDownList, 264, 16, 53, 74},
    {kNoControlId, kLabel, 325, 18, 28, 8, u"delta Y"},
    {1114, kEdit, 354, 15, 28, 14},
    {1107, kGroupBox, 7, 35, 384, 93, u"Lùa chän vÏ"},
    {101, kGrid, 12, 44, 377, 83},
};

constexpr ControlTemplate kPlanTableControls[] = {
    {1112, kGroupBox, 7, 3, 489, 215, kSetParameters}, {101, kGrid, 9, 14, 479, 198},
    {1082, kButton, 7, 221, 50, 14, kSaveFile},        {1095, kButton, 65, 221, 50, 14, kOpenFile},
    {1096, kButton, 121, 221, 50, 14, kClear},         {1, kDefaultButton, 178, 221, 50, 14, u"OK"},
    {2, kButton, 235, 221, 50, 14, u"Cancel"},
};

constexpr std::u16string_view kSerif = u"MS Sans Serif";
constexpr std::u16string_view kShell = u"MS Shell Dlg";

constexpr DialogTemplate kTemplates[] = {
    {kSectionsDialog, 186, 209, DialogFrame::kFixed, u"VÏ ®Þa vËt lªn tr¾c ngang", kSerif, 8, kSectionsControls},
    {kSettingsDialog, 419, 166, DialogFrame::kSizable, u"Cµi ®Æt tham sè ®Þa vËt trªn tr¾c ngang", kSerif, 8,
     kSettingsControls},
    {kSymbolPage, 398, 130, DialogFrame::kPage, {}, kSerif, 8, kSymbolControls},
    {kGeneralPage, 398, 135, DialogFrame::kPage, {}, kSerif, 8, kGeneralControls},
    {kSectionFcodePage, 398, 134, DialogFrame::kPage, {}, kSerif, 8, kFcodeControls},
    {kPlanFcodePage, 398, 134, DialogFrame::kPage, {}, kSerif, 8, kFcodeControls},
    {kPlanTableDialog, 503, 243, DialogFrame::kFixed, u"VÏ ®Þa vËt", kShell, 8, kPlanTableControls},
};

} // namespace

const DialogTemplate* FindDialogTemplate(int id)
{
    const auto* found = std::find_if(std::begin(kTemplates), std::end(kTemplates),
                                     [id](const DialogTemplate& dialog) { return dialog.id == id; });
    return found == std::end(kTemplates) ? nullptr : found;
}
