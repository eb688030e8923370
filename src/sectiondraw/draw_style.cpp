#include "sectiondraw/draw_style.h"

#include "sections/database_cs.h"

namespace
{

constexpr int kHostColor = 0;
constexpr unsigned kOn = 1;

OptionStyle optionStyle(const DatabaseCS& settings, DrawOption option, int color, bool makesLayer)
{
    const auto& layers = settings.m_arrLayerNames;
    return {settings.m_arrDrawFlags[option] == kOn, option < layers.size() ? layers[option] : std::u16string{}, color,
            makesLayer};
}

} // namespace

DrawStyle MakeDrawStyle(const DatabaseCS& settings)
{
    DrawStyle style;
    style.textHeight = settings.m_dTextHeight;
    style.deltaY = settings.m_dDeltaY;
    style.textStyle = settings.m_idTextStyle;
    style.symbolBlock.on = true;

    const size_t flags = settings.m_arrDrawFlags.size();
    if (flags > kFcodeText)
        style.symbolLabel = optionStyle(settings, kSymbolText, settings.m_nColorSymbolText, false);
    if (flags > kSymbol)
        style.symbolBlock = optionStyle(settings, kSymbol, kHostColor, true);
    if (flags == kDrawOptionCount)
    {
        style.fcodeLabel = optionStyle(settings, kFcodeText, settings.m_nColorFcodeText, true);
        style.fcodeBlock = optionStyle(settings, kFcode, kHostColor, true);
    }
    return style;
}
