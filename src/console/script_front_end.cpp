#include "console/script_front_end.h"

#include "host/ui/dialog.h"

#include <algorithm>

namespace console
{

namespace
{

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
    if (m_answers.empty() || m_answers.front().color)
        return std::nullopt;
    std::optional<std::u16string> path = std::move(m_answers.front().path);
    m_answers.pop_front();
    if (path && !question.defaultExtension.empty() && !hasExtension(*path))
        *path += u"." + question.defaultExtension;
    return path;
}

std::optional<int> ScriptFrontEnd::askColor(int)
{
    if (m_answers.empty() || m_answers.front().path)
        return std::nullopt;
    const std::optional<int> color = m_answers.front().color;
    m_answers.pop_front();
    return color;
}

} // namespace console
