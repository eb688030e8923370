#pragma once

#include "desktop/documents/document_tab.h"
#include "desktop/view/drawing_view.h"
#include "desktop/window/make_window.h"
#include "support/temp_folder.h"
#include "support/test_drawing.h"

#include <QAbstractButton>
#include <QElapsedTimer>
#include <QPointer>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>

/// Faults that a test asks for.
class DemandedFaults : public Faults
{
public:
    std::set<AcDbObjectId> unwritable;
    std::map<std::string, int64_t> failingWrites; ///< by path: bytes after which writing fails

    bool refuseOpenForWrite(AcDbObjectId id) override { return unwritable.count(id) != 0; }
    int64_t failWriteAt(const std::string& path) override
    {
        const auto found = failingWrites.find(path);
        return found != failingWrites.end() ? found->second : -1;
    }
};

/// A window that is used as someone would: by keys, clicks and the wheel. What it does on other threads is waited for.
class WindowTest : public testing::Test
{
protected:
    WindowTest();
    ~WindowTest() override;

    desktop::MainWindow& window() { return *m_window; }
    const TempFolder& folder() const { return m_folder; }
    /// Closes the window, as it stands, and opens a new one.
    void restart();

    /// The path of a file in the folder of the test.
    std::string path(const std::string& name) const { return (m_folder.path() / name).string(); }
    /// Writes a drawing and opens it; false when it does not come up.
    void open(const std::string& name, const std::string& dxf);
    void openFile(const std::string& path);
    desktop::DocumentTab& tab() { return *m_window->currentTab(); }
    desktop::DrawingView& view() { return tab().view(); }

    /// Until `condition` holds; a test that waits too long fails.
    static void waitFor(const std::function<bool()>& condition);
    /// What the user does with the next box that comes up, the one behind it and so on: each does so when it is there.
    void whenAsked(const std::function<void(QWidget& box)>& act);
    /// The user presses a button of the next box, by its text. `seen` receives what the box said.
    void answer(const QString& button, QString* seen = nullptr);
    /// Types on the keyboard of the widget that has the focus.
    void type(const QString& text);
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = {});
    /// A change of the drawing in front: its last layer goes off, or on.
    void changeLayer();
    bool isLayerOff();
    template <class Widget>
    Widget& find(const char* name)
    {
        auto* found = m_window->findChild<Widget*>(name);
        if (found == nullptr)
            throw std::runtime_error{std::string{"the window has no "} + name};
        return *found;
    }
    /// What the command line lists.
    QString history();

    DemandedFaults m_faults;

private:
    void start();
    void lookForBox();
    QWidget& focused();

    TempFolder m_folder;
    std::unique_ptr<desktop::MainWindow> m_window;
    std::deque<std::function<void(QWidget&)>> m_acts; ///< for the boxes to come
    QTimer m_user;
    QElapsedTimer m_unanswered;   ///< since a box came up
    QPointer<QWidget> m_answered; ///< the box at hand, which is done with
};
