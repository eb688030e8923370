#pragma once

#include <optional>
#include <string>

class CWnd;
struct FileQuestion;

/// The host's main window as the module reaches it, and the framework's questions; all go to the session's front end.

/// The host's main window; null when there is none.
CWnd* adsw_acadMainWnd();
CWnd* acedGetAcadFrame();

/// Shows a text with an OK button.
void AfxMessageBox(const std::u16string& text);

/// The system's file dialog: the path chosen, or nothing when it was cancelled.
std::optional<std::u16string> askFile(const FileQuestion& question);
