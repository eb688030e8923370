#pragma once

#include "host/ui/dialog_template.h"

/// The module's dialogs. Captions are TCVN3 bytes as the characters of the same code; each dialog decodes them when it
/// starts.

constexpr int kSectionsDialog = 192; ///< choosing and drawing the cross-sections
constexpr int kSettingsDialog = 193; ///< the settings, with the four pages below
constexpr int kSymbolPage = 194;
constexpr int kGeneralPage = 195;
constexpr int kSectionFcodePage = 196;
constexpr int kPlanFcodePage = 197;
constexpr int kPlanTableDialog = 199; ///< the feature codes of the plan

/// The template of `id`, or null for an id that the module does not have.
const DialogTemplate* FindDialogTemplate(int id);
