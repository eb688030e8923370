#include "desktop/window/run_window.h"

#include "desktop/language/message.h"
#include "desktop/recovery/recovery.h"
#include "desktop/render/render_options.h"
#include "desktop/window/application.h"
#include "desktop/window/end_signals.h"
#include "desktop/window/make_window.h"
#include "desktop/window/single_instance.h"
#include "disk/signals.h"

#include <cstdlib>
#include <iostream>
#include <unistd.h>
#include <utility>

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

/// Whatever calls exit() while the window lives (a display that goes away does) must not lose work.
Recovery* atExit = nullptr;

void keepAtExit()
{
    if (Recovery* recovery = std::exchange(atExit, nullptr))
        recovery->keepNow();
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
    if (handToRunningWindow(drawings))
        return 0;
    const std::unique_ptr<MainWindow> made = makeWindow();
    MainWindow& window = *made;
    application.onFailure = [&window](const QString& reason) { window.say(reason); };
    const SingleInstance instance{[&window](const std::vector<std::string>& wanted)
                                  {
                                      window.comeUp();
                                      window.open(wanted);
                                  }};
    const EndSignals endings{[&window] { window.recovery().keepNow(); }};
    atExit = &window.recovery();
    std::atexit(keepAtExit);
    window.show();
    window.open(drawings);
    window.gate().whenOpen([&window] { window.perform([&window] { window.recovery().offer(); }); });
    const int status = QApplication::exec();
    atExit = nullptr;
    return status;
}

} // namespace desktop
