#include "util/dialog_help.h"

#include "host/db/resbuf.h"
#include "host/ed/command.h"
#include "host/ui/dialog.h"
#include "util/tcvn3.h"

namespace
{

constexpr size_t kLongestCaption = 127;

constexpr int kNoTypedName = 2;
constexpr int kAnyExtension = 4;
constexpr int kStartsInFolder = 16;

} // namespace

std::optional<CFont> DialogFont;

void ConvertControlCaptions(CDialog& dialog)
{
    for (const auto& control : dialog.controls())
        if (dynamic_cast<CButton*>(control.get()) != nullptr || dynamic_cast<CStatic*>(control.get()) != nullptr)
            control->SetWindowText(DecodeStoredText(control->GetWindowText(), kLongestCaption));
}

void ApplyDialogFont(CDialog& dialog)
{
    if (!DialogFont)
        return;
    dialog.SetFont(*DialogFont);
    for (const auto& control : dialog.controls())
        control->SetFont(*DialogFont);
}

std::optional<std::u16string> AskFileName(const FileRequest& request)
{
    const int flags = static_cast<int>(request.kind) + kNoTypedName + (request.anyExtension ? kAnyExtension : 0) +
                      (request.startIsFolder ? kStartsInFolder : 0);
    const ResbufPtr result(acutNewRb(RTSTR));
    if (acedGetFileD(request.title.c_str(), request.start.c_str(), request.extension.c_str(), flags, result.get()) !=
            RTNORM ||
        result->resval.rstring == nullptr)
        return std::nullopt;
    return result->resval.rstring;
}
