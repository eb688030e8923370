#pragma once

#include <optional>
#include <string>

class CDialog;
class CWnd;

/// A question for a file's name.
struct FileQuestion
{
    bool saving = false;
    bool namesSymbols = false; ///< a file opened names symbol drawings, which may stand beside it
    std::u16string title;
    std::u16string folder; ///< to start in; may be empty
    std::u16string defaultName;
    std::u16string defaultExtension; ///< without the dot; given to a name typed without one
    std::u16string filter;           ///< "description|pattern|" pairs; empty when only the extension counts
};

/// What shows the host's dialogs to someone: a window system, or a script that plays the user. Dialogs are plain state;
/// the front end shows that state and reports what the user did through the dialog's `user...` operations. It owns no
/// dialog. A question nobody answers is cancelled, never waited for. All calls come on the host's one thread.
class FrontEnd
{
public:
    virtual ~FrontEnd() = default;

    /// The host's main window; null when there is none (then modeless dialogs cannot be shown).
    virtual CWnd* mainWindow() = 0;
    /// A modeless dialog was opened.
    virtual void shown(CDialog& dialog) = 0;
    /// It was ended or destroyed: nothing may be kept of it. The object may be half gone; only its address counts.
    virtual void gone(CDialog& dialog) = 0;
    /// Shows a modal dialog until it is no longer open (its end is a change of the dialog); answers its result.
    virtual int runModal(CDialog& dialog) = 0;
    /// The state of a control (or the dialog itself) changed; a window redraws it. Called often; must be cheap.
    virtual void changed(CWnd& control) = 0;
    virtual void setFocus(CWnd* control) = 0;
    virtual void messageBox(const std::u16string& text) = 0;
    virtual std::optional<std::u16string> askFile(const FileQuestion& question) = 0;
    /// A palette colour 0 to 256, or nothing when the user cancels.
    virtual std::optional<int> askColor(int current) = 0;
    /// The display's horizontal resolution in dots an inch; 96 without a display.
    virtual int displayDpi() { return 96; }
    /// Something in the drawing or the view changed; a window redraws it.
    virtual void drawingChanged() {}
};
