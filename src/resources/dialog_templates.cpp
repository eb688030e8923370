#include "resources/dialog_templates.h"

#include "host/ui/dialog.h"
#include "resources/control_ids.h"

#include <algorithm>
#include <iterator>

namespace
{

using enum ControlKind;
using namespace control_ids;

constexpr std::u16string_view kSaveFile = u"L\u00ADu tÖp";
constexpr std::u16string_view kOpenFile = u"Më tÖp";
constexpr std::u16string_view kClear = u"Xãa";
constexpr std::u16string_view kSetParameters = u"§Æt tham sè";

constexpr ControlTemplate kSectionsControls[] = {
    {IDOK, kDefaultButton, 72, 189, 50, 14, u"§ãng"},
    {sections::kSections, kCheckList, 15, 55, 88, 123},
    {sections::kSelectAll, kCheckBox, 114, 55, 53, 10, u"Chän tÊt c¶"},
    {sections::kDeselect, kCheckBox, 114, 70, 43, 10, u"Bá chän"},
    {sections::kDraw, kButton, 114, 128, 50, 14, u"VÏ"},
    {sections::kUndo, kButton, 114, 146, 50, 14, u"Undo"},
    {sections::kSettings, kButton, 114, 164, 50, 14, u"Cµi ®Æt"},
    {kNoControlId, kGroupBox, 7, 43, 172, 140, u"Chän c¸c tr¾c ngang cÇn vÏ"},
    {sections::kHelp, kButton, 129, 189, 50, 14, u"Help"},
    {kNoControlId, kGroupBox, 7, 5, 172, 34, u"Chän tuyÕn"},
    {sections::kAlignments, kDropDownList, 15, 19, 155, 109},
};

constexpr ControlTemplate kSettingsControls[] = {
    {settings::kPages, kTabControl, 6, 3, 406, 139},
    {IDOK, kDefaultButton, 252, 146, 50, 14, u"OK"},
    {IDCANCEL, kButton, 307, 146, 50, 14, u"Cancel"},
    {settings::kHelp, kButton, 362, 146, 50, 14, u"Help"},
};

constexpr ControlTemplate kSymbolControls[] = {
    {table::kSymbolGroup, kGroupBox, 7, 7, 384, 116, kSetParameters},
    {table::kSaveFile, kButton, 14, 107, 50, 14, kSaveFile},
    {table::kOpenFile, kButton, 71, 107, 50, 14, kOpenFile},
    {table::kClear, kButton, 128, 107, 50, 14, kClear},
    {table::kGrid, kGrid, 9, 14, 377, 90},
};

constexpr ControlTemplate kFcodeControls[] = {
    {table::kFcodeGroup, kGroupBox, 7, 7, 384, 116, kSetParameters},
    {table::kSaveFile, kButton, 14, 107, 50, 14, kSaveFile},
    {table::kOpenFile, kButton, 71, 107, 50, 14, kOpenFile},
    {table::kClear, kButton, 128, 107, 50, 14, kClear},
    {table::kGrid, kGrid, 9, 14, 377, 90},
};

constexpr ControlTemplate kGeneralControls[] = {
    {general::kSearchGroup, kGroupBox, 7, 3, 147, 30, u"Vïng t×m kiÕm ®Þa vËt"},
    {general::kForwardLabel, kLabel, 12, 18, 40, 8, u"K.c¸ch tr\u00ADíc"},
    {general::kForward, kEdit, 53, 15, 28, 14},
    {general::kBackwardLabel, kLabel, 84, 18, 38, 8, u"K.c¸ch sau"},
    {general::kBackward, kEdit, 123, 15, 28, 14},
    {kNoControlId, kGroupBox, 153, 3, 238, 30, u"Tham sè ®iÒn text"},
    {kNoControlId, kLabel, 161, 18, 31, 8, u"Cao ch÷"},
    {general::kTextHeight, kEdit, 193, 15, 28, 14},
    {kNoControlId, kLabel, 228, 18, 35, 8, u"KiÓu ch÷"},
    {general::kTextStyle, kDropDownList, 264, 16, 53, 74},
    {kNoControlId, kLabel, 325, 18, 28, 8, u"delta Y"},
    {general::kDeltaY, kEdit, 354, 15, 28, 14},
    {general::kOptionsGroup, kGroupBox, 7, 35, 384, 93, u"Lùa chän vÏ"},
    {general::kOptions, kGrid, 12, 44, 377, 83},
};

constexpr ControlTemplate kPlanTableControls[] = {
    {table::kFcodeGroup, kGroupBox, 7, 3, 489, 215, kSetParameters},
    {table::kGrid, kGrid, 9, 14, 479, 198},
    {table::kSaveFile, kButton, 7, 221, 50, 14, kSaveFile},
    {table::kOpenFile, kButton, 65, 221, 50, 14, kOpenFile},
    {table::kClear, kButton, 121, 221, 50, 14, kClear},
    {IDOK, kDefaultButton, 178, 221, 50, 14, u"OK"},
    {IDCANCEL, kButton, 235, 221, 50, 14, u"Cancel"},
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
