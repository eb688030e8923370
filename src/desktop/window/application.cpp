#include "desktop/window/application.h"

#include "desktop/language/message.h"

#include <exception>
#include <new>

namespace desktop
{

Application::Application(int& argc, char** argv) : QApplication{argc, argv}
{
    setOrganizationName("PLX");
    setApplicationName("veloxa");
    setApplicationDisplayName("Veloxa");
    setDesktopFileName("veloxa-desktop");
}

bool Application::notify(QObject* receiver, QEvent* event)
{
    QString reason;
    try
    {
        return QApplication::notify(receiver, event);
    }
    catch (const std::bad_alloc&)
    {
        reason = msg("There is not enough memory.");
    }
    catch (const std::exception& error)
    {
        reason = QString::fromUtf8(error.what());
    }
    if (onFailure)
        onFailure(reason);
    return true;
}

} // namespace desktop
