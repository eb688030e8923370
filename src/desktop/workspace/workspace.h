#pragma once

#include "desktop/workspace/ask.h"
#include "desktop/workspace/gate.h"
#include "desktop/workspace/jobs.h"

#include <functional>
#include <string>
#include <vector>

class QWidget;

namespace host
{
class Session;
}

namespace desktop
{

class DocumentTab;

/// What the parts of the window ask of it: the drawings in its tabs, and how something is done, asked and told.
class Workspace
{
public:
    explicit Workspace(QWidget& window) : m_window{window}, m_ask{window, m_gate} {}
    Workspace(const Workspace&) = delete;
    Workspace& operator=(const Workspace&) = delete;
    virtual ~Workspace() = default;

    /// Boxes stand before it.
    QWidget& window() { return m_window; }
    Gate& gate() { return m_gate; }
    Ask& ask() { return m_ask; }
    Jobs& jobs() { return m_jobs; }
    virtual host::Session& session() = 0;

    /// Does something the user asked for: nothing else begins meanwhile, and a failure is told.
    virtual void perform(const std::function<void()>& action) = 0;
    /// The same for what changes the drawing in front: it can be taken back as one, under that name.
    virtual void change(const QString& title, const std::function<void()>& action) = 0;
    /// Tells below the drawing, for a moment and in the list of what was done.
    virtual void say(const QString& text) = 0;

    /// The tab in front; null when there is none.
    virtual DocumentTab* currentTab() const = 0;
    /// The tabs whose drawings are read.
    virtual std::vector<DocumentTab*> openTabs() const = 0;
    /// The tab of a file; null when it has none.
    virtual DocumentTab* tabOf(const std::string& path) const = 0;
    virtual DocumentTab& addTab(const std::string& path) = 0;
    virtual void showTab(DocumentTab& tab) = 0;
    virtual void removeTab(DocumentTab& tab) = 0;
    /// A tab got its drawing, or another one.
    virtual void opened(DocumentTab& tab) = 0;
    /// Its drawing was saved.
    virtual void saved(DocumentTab& tab) = 0;

private:
    QWidget& m_window;
    Gate m_gate;
    Ask m_ask;
    Jobs m_jobs; ///< last: its threads end before what they report to
};

} // namespace desktop
