#pragma once

#include "host/ui/window.h"

#include <optional>
#include <string>

class CDialog;

/// The font of all dialogs; none while the module is not loaded.
extern std::optional<CFont> DialogFont;

/// Gives a dialog that was just made the captions of its buttons and static texts as wide text; its template keeps them
/// in 8-bit form. Not to be done twice.
void ConvertControlCaptions(CDialog& dialog);

/// Gives a dialog and all its controls the font of all dialogs.
void ApplyDialogFont(CDialog& dialog);

enum class FileDialog
{
    kOpen = 0,
    kSave = 1
};

/// What the host's file dialog is asked for.
struct FileRequest
{
    FileDialog kind = FileDialog::kOpen;
    std::u16string title;
    std::u16string start; ///< a file name, or the folder to start in
    std::u16string extension;
    bool startIsFolder = false;
    bool anyExtension = false;
};

/// The path that the user chose; nothing when there is none.
std::optional<std::u16string> AskFileName(const FileRequest& request);
