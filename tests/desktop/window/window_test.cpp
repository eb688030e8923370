#include "desktop/window/window_test.h"

#include "desktop/command/command_line.h"

#include <QApplication>
#include <QMessageBox>
#include <QTimer>

using desktop::MainWindow;

WindowTest::WindowTest()
{
    start();
}

WindowTest::~WindowTest()
{
    m_window.reset();
    EXPECT_EQ(ledger().describe(), "");
    ledger() = {};
}

void WindowTest::start()
{
    m_window = std::make_unique<MainWindow>(host::SessionOptions{path("settings"), {}});
    m_window->desk().session().setFaults(&m_faults);
    m_window->resize(1000, 700);
    m_window->show();
    m_window->activateWindow();
    waitFor([this] { return m_window->isActiveWindow(); });
}

void WindowTest::restart()
{
    m_window.reset();
    start();
}

void WindowTest::open(const std::string& name, const std::string& dxf)
{
    m_folder.write(name, dxf);
    openFile(path(name));
}

void WindowTest::openFile(const std::string& path)
{
    m_window->open({path});
    waitFor([this] { return m_window->currentDocument() != nullptr; });
    tab().view().setFocus();
}

void WindowTest::waitFor(const std::function<bool()>& condition)
{
    constexpr int kPatience = 30'000; ///< milliseconds; nothing waits so long that does come
    EXPECT_TRUE(QTest::qWaitFor(condition, kPatience));
}

void WindowTest::whenAsked(const std::function<void(QWidget& box)>& act)
{
    auto* timer = new QTimer{m_window.get()};
    QObject::connect(timer, &QTimer::timeout, timer,
                     [timer, act]
                     {
                         QWidget* box = QApplication::activeModalWidget();
                         if (box == nullptr || !box->isVisible() || box->objectName() == "working")
                             return;
                         timer->stop();
                         timer->deleteLater();
                         act(*box);
                     });
    timer->start(1);
}

void WindowTest::answer(const QString& button, QString* seen)
{
    whenAsked(
        [button, seen](QWidget& box)
        {
            if (const auto* message = dynamic_cast<const QMessageBox*>(&box); message != nullptr && seen != nullptr)
                *seen = message->text();
            for (QAbstractButton* each : box.findChildren<QAbstractButton*>())
                if (each->text() == button)
                    return QTest::mouseClick(each, Qt::LeftButton);
            ADD_FAILURE() << "the box has no button " << button.toStdString();
            static_cast<QDialog&>(box).reject();
        });
}

/// Without a window system nobody gives the window its turn back when a box closes.
QWidget& WindowTest::focused()
{
    if (!m_window->isActiveWindow())
    {
        m_window->activateWindow();
        waitFor([this] { return m_window->isActiveWindow(); });
    }
    QWidget* focus = QApplication::focusWidget();
    return focus != nullptr ? *focus : *m_window;
}

void WindowTest::type(const QString& text)
{
    // One by one: the first letter may bring another widget into focus.
    for (const QChar letter : text)
        QTest::keyClick(&focused(), letter.toLatin1());
}

void WindowTest::key(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    QTest::keyClick(&focused(), key, modifiers);
}

QString WindowTest::history()
{
    return m_window->commandLine().history();
}
