#include "desktop/command/zoom_command.h"

#include "desktop/documents/document_tab.h"
#include "desktop/language/message.h"
#include "desktop/language/qt_text.h"
#include "desktop/view/drawing_view.h"
#include "desktop/window/main_window.h"

namespace desktop
{

namespace
{

QString textOf(const picture::Vertex& point)
{
    constexpr int kDigits = 17;
    return QString::number(point.x, 'g', kDigits) + "," + QString::number(point.y, 'g', kDigits);
}

/// Has the host zoom as it does for its own commands, so that Zoom p finds the way back.
void zoom(MainWindow& window, const QString& options)
{
    window.perform(
        [&]
        {
            if (DocumentTab* tab = window.currentTab())
                tab->showModelSpace();
            if (!window.desk().session().runCommand(u"zoom " + toHost(options)))
                window.say(msg("%1 is no option of ZOOM").arg(options));
        });
}

} // namespace

void startZoom(MainWindow& window)
{
    window.interpreter().askPoint(
        msg("Corner of a window, or [e = everything / p = previous]:"),
        [&window](const picture::Vertex& first)
        {
            window.interpreter().askPoint(msg("Opposite corner:"), [&window, first](const picture::Vertex& second)
                                          { zoom(window, textOf(first) + " " + textOf(second)); });
        },
        [&window](const QString& word) { zoom(window, word); });
}

} // namespace desktop
