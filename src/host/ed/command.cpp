#include "host/ed/command.h"

#include "host/app/host_command.h"
#include "host/app/session.h"
#include "host/db/resbuf.h"
#include "store/text/text.h"

#include <optional>

namespace
{

constexpr int kSaving = 1;
constexpr int kDefaultIsFolder = 16;
constexpr int kByBlock = 0;
constexpr int kByLayer = 256;

} // namespace

int acedCommandS(std::initializer_list<std::u16string> words)
{
    return runHostCommand(words) ? RTNORM : RTERROR;
}

int acedGetFileD(const char16_t* title, const char16_t* defaultName, const char16_t* extension, int flags,
                 resbuf* result)
{
    if (!host::Session::hasCurrent() || result == nullptr)
        return RTERROR;
    const auto textOf = [](const char16_t* text) { return std::u16string{text != nullptr ? text : u""}; };
    FileQuestion question;
    question.saving = (flags & kSaving) != 0;
    question.title = textOf(title);
    ((flags & kDefaultIsFolder) != 0 ? question.folder : question.defaultName) = textOf(defaultName);
    question.defaultExtension = textOf(extension);
    if (equalNoCase(textOf(extension), u"dwg"))
        question.filter = u"DWG, DXF|*.dwg;*.dxf|";
    const std::optional<std::u16string> answer = host::Session::current().frontEnd().askFile(question);
    if (!answer)
        return RTCAN;
    result->restype = RTSTR;
    result->resval.rstring = acutNewString(answer->c_str());
    return RTNORM;
}

bool acedSetColorDialog(int& color, bool byLayerAllowed, int /*currentLayerColor*/)
{
    if (!host::Session::hasCurrent())
        return false;
    const std::optional<int> answer = host::Session::current().frontEnd().askColor(color);
    const bool logical = answer && (*answer == kByLayer || *answer == kByBlock);
    if (!answer || *answer < kByBlock || *answer > kByLayer || (logical && !byLayerAllowed))
        return false;
    color = *answer;
    return true;
}
