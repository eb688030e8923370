#include "desktop/window/run_window.h"

#include "desktop/language/message.h"
#include "desktop/render/render_options.h"
#include "desktop/window/application.h"
#include "desktop/window/main_window.h"
#include "disk/signals.h"

#include <iostream>
#include <unistd.h>

namespace desktop
{

namespace
{

/// Without a display the window system would end the program with a core dump.
void endWithoutDisplay(QtMsgType kind, const QMessageLogContext&, const QString& message)
{
    if (kind == QtFatalMsg)
    {
        std::cerr << "veloxa: the window cannot be shown: " << message.toStdString() << std::endl;
        ::_exit(1);
    }
    if (kind == QtCriticalMsg)
        std::cerr << "veloxa: " << message.toStdString() << std::endl;
}

} // namespace

int runWindow(int& argc, char** argv, const std::vector<std::string>& drawings)
{
    if (qEnvironmentVariableIsEmpty("DISPLAY") && qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") &&
        qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        throw Failure{"there is no display to show the window on"};
    disk::cleanUpOnSignals();
    qInstallMessageHandler(endWithoutDisplay);
    Application application{argc, argv};
    chooseLanguage(languageOfEnvironment());
    MainWindow window;
    application.onFailure = [&window](const QString& reason) { window.say(reason); };
    window.show();
    if (!drawings.empty())
        window.open(drawings);
    return QApplication::exec();
}

} // namespace desktop
