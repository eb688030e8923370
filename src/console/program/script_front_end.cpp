#include "console/program/script_front_end.h"

#include "host/app/paths.h"
#include "host/ui/dialog.h"

#include <algorithm>

namespace console
{

namespace
{

constexpr std::u16string_view kSymbolExtension = u"dwg";

bool hasExtension(const std::u16string& path)
{
    const size_t part = path.find_last_of(u"/\\");
    return path.find(u'.', part == std::u16string::npos ? 0 : part) != std::u16string::npos;
}

} // namespace

ScriptFrontEnd::ScriptFrontEnd() = default;

CDialog* ScriptFrontEnd::currentDialog() const
{
    if (!m_modal.empty())
        return m_modal.back();
    return m_modeless.empty() ? nullptr : m_modeless.back();
}

void ScriptFrontEnd::shown(CDialog& dialog)
{
    if (dialog.isModal() || std::find(m_modeless.begin(), m_modeless.end(), &dialog) != m_modeless.end())
        return;
    m_modeless.push_back(&dialog);
}

void ScriptFrontEnd::gone(CDialog& dialog)
{
    std::erase(m_modeless, &dialog);
}

int ScriptFrontEnd::runModal(CDialog& dialog)
{
    m_modal.push_back(&dialog);
    if (onModal)
        onModal(dialog);
    m_modal.pop_back();
    return IDCANCEL;
}

void ScriptFrontEnd::messageBox(const std::u16string& text)
{
    if (onMessage)
        onMessage(text);
}

std::optional<std::u16string> ScriptFrontEnd::askFile(const FileQuestion& question)
{
    std::optional<std::u16string> path = takeAnswer([](const Answer& answer) { return !answer.color; }).path;
    if (path && !question.defaultExtension.empty() && !hasExtension(*path))
        *path += u"." + question.defaultExtension;
    if (path && question.defaultExtension == kSymbolExtension)
        path = storedPath(*path);
    return path;
}

std::optional<int> ScriptFrontEnd::askColor(int)
{
    return takeAnswer([](const Answer& answer) { return !answer.path; }).color;
}

/// The first answer in the queue that fits the question; a cancellation when none does.
template <class Fits>
ScriptFrontEnd::Answer ScriptFrontEnd::takeAnswer(Fits fits)
{
    const auto found = std::find_if(m_answers.begin(), m_answers.end(), fits);
    if (found == m_answers.end())
        return {};
    Answer answer = std::move(*found);
    m_answers.erase(found);
    return answer;
}

} // namespace console
