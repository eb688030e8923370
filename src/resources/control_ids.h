#pragma once

/// The ids of the controls of each dialog, as its template gives them and scripts name them; OK and Cancel have the
/// host's. Two dialogs may use an id for different things.
namespace control_ids
{

/// Choosing and drawing the cross-sections.
namespace sections
{
constexpr int kDraw = 1094;
constexpr int kUndo = 1095;
constexpr int kSettings = 1096;
constexpr int kSections = 1099;
constexpr int kSelectAll = 1100;
constexpr int kDeselect = 1101;
constexpr int kHelp = 1103;
constexpr int kAlignments = 1113;
} // namespace sections

/// The frame of the settings.
namespace settings
{
constexpr int kPages = 1101;
constexpr int kHelp = 1103;
} // namespace settings

/// The page of the general settings.
namespace general
{
constexpr int kOptions = 101;
constexpr int kTextHeight = 1095;
constexpr int kForward = 1102;
constexpr int kBackward = 1104;
constexpr int kOptionsGroup = 1107;
constexpr int kSearchGroup = 1108;
constexpr int kForwardLabel = 1109;
constexpr int kBackwardLabel = 1110;
constexpr int kDeltaY = 1114;
constexpr int kTextStyle = 1115;
} // namespace general

/// The pages of symbols and feature codes, and the table of the plan.
namespace table
{
constexpr int kGrid = 101;
constexpr int kSaveFile = 1082;
constexpr int kOpenFile = 1095;
constexpr int kClear = 1096;
constexpr int kSymbolGroup = 1111;
constexpr int kFcodeGroup = 1112;
} // namespace table

} // namespace control_ids
