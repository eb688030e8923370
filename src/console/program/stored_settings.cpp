#include "console/program/stored_settings.h"

#include "sections/database_cs.h"
#include "store/text/text.h"
#include "util/numbers.h"

namespace console
{

namespace
{

constexpr int kDecimals = 2; // as the dialog shows and keeps them

std::string shown(double number)
{
    return toUtf8(FormatReal(number, kDecimals));
}

} // namespace

StoredSettings::StoredSettings(const DatabaseCS& settings)
    : m_backward{settings.m_dBackwardDistance}, m_forward{settings.m_dForwardDistance},
      m_textHeight{settings.m_dTextHeight}, m_deltaY{settings.m_dDeltaY}, m_flags{settings.m_arrDrawFlags},
      m_layers{settings.m_arrLayerNames}
{
}

void StoredSettings::restore(DatabaseCS& settings) const
{
    settings.m_dBackwardDistance = m_backward;
    settings.m_dForwardDistance = m_forward;
    settings.m_dTextHeight = m_textHeight;
    settings.m_dDeltaY = m_deltaY;
    if (m_flags.empty())
        return;
    settings.m_arrDrawFlags = m_flags;
    settings.m_arrLayerNames = m_layers;
}

std::string StoredSettings::differencesFrom(const GeneralTexts& kept) const
{
    if (m_flags.empty())
        return {};
    std::string text;
    const auto compare = [&](const char* name, const std::u16string& typed, double stored)
    {
        const std::string own = shown(ToReal(typed));
        if (own != shown(stored))
            text += (text.empty() ? "" : ", ") + std::string{name} + " " + own + " (yours: " + shown(stored) + ")";
    };
    compare("search distance behind", kept.backward, m_backward);
    compare("search distance ahead", kept.forward, m_forward);
    compare("text height", kept.textHeight, m_textHeight);
    compare("leader height", kept.deltaY, m_deltaY);
    return text.empty() ? text : "the settings that the drawing keeps count here, and yours stay as they are: " + text;
}

} // namespace console
