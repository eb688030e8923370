#include "desktop/command/zoom_command.h"

#include "desktop/command/interpreter.h"
#include "desktop/documents/document_tab.h"
#include "desktop/language/message.h"
#include "desktop/language/qt_text.h"
#include "desktop/workspace/workspace.h"
#include "host/app/session.h"

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
void zoom(Workspace& workspace, const QString& options)
{
    workspace.perform(
        [&]
        {
            if (DocumentTab* tab = workspace.currentTab())
                tab->showModelSpace();
            if (!workspace.session().runCommand(u"zoom " + toHost(options)))
                workspace.say(msg("%1 is no option of ZOOM").arg(options));
        });
}

} // namespace

void startZoom(Workspace& workspace, Interpreter& interpreter)
{
    interpreter.askPoint(
        msg("Corner of a window, or [e = everything / p = previous]:"),
        [&workspace, &interpreter](const picture::Vertex& first)
        {
            interpreter.askPoint(msg("Opposite corner:"), [&workspace, first](const picture::Vertex& second)
                                 { zoom(workspace, textOf(first) + " " + textOf(second)); });
        },
        [&workspace](const QString& word) { zoom(workspace, word); });
}

} // namespace desktop
