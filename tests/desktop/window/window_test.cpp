#include "desktop/window/window_test.h"

#include "desktop/command/command_line.h"
#include "desktop/documents/layer_changes.h"
#include "host/db/database.h"
#include "host/db/table/symbol_tables.h"
#include "store/table_index.h"

#include <QApplication>
#include <QMessageBox>

using desktop::MainWindow;

WindowTest::WindowTest()
{
    QObject::connect(&m_user, &QTimer::timeout, &m_user, [this] { lookForBox(); });
    m_user.start(1);
    start();
}

WindowTest::~WindowTest()
{
    EXPECT_TRUE(m_acts.empty()) << "a question was not asked";
    m_window.reset();
    EXPECT_EQ(ledger().describe(), "");
    ledger() = {};
}

void WindowTest::start()
{
    m_window = desktop::makeWindow(host::SessionOptions{path("settings"), {}});
    m_window->session().setFaults(&m_faults);
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
    m_acts.push_back(act);
}

/// A box is answered once: one that stays open was not.
void WindowTest::lookForBox()
{
    constexpr int kPatience = 10'000; ///< milliseconds before a question that no test answers is given up
    QWidget* box = QApplication::activeModalWidget();
    if (box == nullptr || !box->isVisible() || box->objectName() == "working" || box == m_answered)
        return m_unanswered.invalidate();
    if (!m_unanswered.isValid())
        m_unanswered.start();
    if (m_acts.empty() && m_unanswered.hasExpired(kPatience))
    {
        const auto* message = dynamic_cast<const QMessageBox*>(box);
        ADD_FAILURE() << "nobody answers " << (message != nullptr ? message->text().toStdString() : "a dialog");
        box->close();
    }
    if (m_acts.empty())
        return;
    m_answered = box;
    const std::function<void(QWidget&)> act = m_acts.front();
    m_acts.pop_front();
    act(*box);
}

void WindowTest::changeLayer()
{
    window().change("layer",
                    [this]
                    {
                        const AcDbObjectId id = tab().document()->database().tables().live("LAYER").back();
                        desktop::setLayersOff({id}, !isLayerOff());
                    });
}

bool WindowTest::isLayerOff()
{
    const AcDbObjectPointer<AcDbLayerTableRecord> layer{tab().document()->database().tables().live("LAYER").back()};
    return layer->isOff();
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
