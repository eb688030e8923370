#include "desktop/window/theme.h"

#include <QApplication>
#include <QPalette>
#include <QSettings>
#include <QStyleFactory>

namespace desktop
{

namespace
{

constexpr const char* kSetting = "theme";

QPalette lightPalette()
{
    QPalette palette{QColor{0xF0, 0xF1, 0xF3}};
    palette.setColor(QPalette::Window, QColor{0xF0, 0xF1, 0xF3});
    palette.setColor(QPalette::WindowText, QColor{0x1B, 0x1D, 0x20});
    palette.setColor(QPalette::Base, Qt::white);
    palette.setColor(QPalette::AlternateBase, QColor{0xF5, 0xF7, 0xFA});
    palette.setColor(QPalette::Text, QColor{0x1B, 0x1D, 0x20});
    palette.setColor(QPalette::Button, QColor{0xE8, 0xEA, 0xED});
    palette.setColor(QPalette::ButtonText, QColor{0x1B, 0x1D, 0x20});
    palette.setColor(QPalette::Highlight, QColor{0x1F, 0x6F, 0xC4});
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::PlaceholderText, QColor{0x78, 0x7D, 0x85});
    palette.setColor(QPalette::Link, QColor{0x1F, 0x6F, 0xC4});
    palette.setColor(QPalette::ToolTipBase, QColor{0xFF, 0xFD, 0xE8});
    palette.setColor(QPalette::ToolTipText, QColor{0x1B, 0x1D, 0x20});
    return palette;
}

QPalette darkPalette()
{
    const QColor text{0xDD, 0xE0, 0xE4};
    QPalette palette{QColor{0x2B, 0x2D, 0x31}};
    palette.setColor(QPalette::Window, QColor{0x2B, 0x2D, 0x31});
    palette.setColor(QPalette::WindowText, text);
    palette.setColor(QPalette::Base, QColor{0x1F, 0x21, 0x24});
    palette.setColor(QPalette::AlternateBase, QColor{0x26, 0x28, 0x2C});
    palette.setColor(QPalette::Text, text);
    palette.setColor(QPalette::Button, QColor{0x38, 0x3B, 0x40});
    palette.setColor(QPalette::ButtonText, text);
    palette.setColor(QPalette::Highlight, QColor{0x2D, 0x74, 0xC0});
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::PlaceholderText, QColor{0x8B, 0x90, 0x98});
    palette.setColor(QPalette::Link, QColor{0x6C, 0xB1, 0xFF});
    palette.setColor(QPalette::BrightText, QColor{0xFF, 0x8A, 0x80});
    palette.setColor(QPalette::ToolTipBase, QColor{0x3A, 0x3D, 0x42});
    palette.setColor(QPalette::ToolTipText, text);
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, QColor{0x7A, 0x7E, 0x85});
    return palette;
}

} // namespace

void applyTheme(Theme theme)
{
    QApplication::setStyle(QStyleFactory::create("Fusion"));
    QApplication::setPalette(theme == Theme::kDark ? darkPalette() : lightPalette());
}

Theme storedTheme()
{
    return QSettings{}.value(kSetting).toString() == "dark" ? Theme::kDark : Theme::kLight;
}

void storeTheme(Theme theme)
{
    QSettings{}.setValue(kSetting, theme == Theme::kDark ? "dark" : "light");
}

unsigned backgroundOf(Theme theme)
{
    return theme == Theme::kDark ? 0x1E1E1E : 0xFFFFFF;
}

} // namespace desktop
