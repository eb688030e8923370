#include "desktop/language/message.h"
#include "desktop/window/application.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

#include <iostream>

/// A program of the window's kind, without a display and with settings of its own.
int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    const TempFolder home;
    for (const char* name : {"HOME", "XDG_CONFIG_HOME", "XDG_STATE_HOME", "XDG_RUNTIME_DIR", "XDG_DATA_HOME"})
        qputenv(name, home.path().c_str());
    qputenv("QT_QPA_PLATFORM", "offscreen");
    // The platform of no display says of each window what it cannot do.
    qInstallMessageHandler(
        [](QtMsgType kind, const QMessageLogContext&, const QString& message)
        {
            if (kind != QtDebugMsg && !message.contains("propagateSizeHints"))
                std::cerr << message.toStdString() << '\n';
        });
    const desktop::Application application{argc, argv};
    desktop::chooseLanguage(desktop::Language::kEnglish);
    return RUN_ALL_TESTS();
}
