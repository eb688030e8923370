#pragma once

#include "desktop/documents/open_document.h"

#include <QWidget>

#include <functional>
#include <memory>
#include <string>

class QLabel;
class QPushButton;
class QStackedLayout;
class QTabBar;

namespace desktop
{

class DrawingView;

/// One tab of the window: a drawing, with its spaces as tabs below; until it is read, a page that says so.
class DocumentTab : public QWidget
{
public:
    explicit DocumentTab(std::string path);
    ~DocumentTab() override;

    const std::string& path() const { return m_document ? m_document->path() : m_path; }
    /// Null until the drawing is read.
    OpenDocument* document() { return m_document.get(); }
    DrawingView& view() { return *m_view; }

    /// While it is not read: what Cancel does.
    void setCancel(std::function<void()> cancel) { m_cancel = std::move(cancel); }
    /// The drawing is there: shows it.
    void setDocument(std::unique_ptr<OpenDocument> document);
    /// Shows a space by its place among the tabs below.
    void showSpace(int index);
    bool showsModelSpace() const;
    /// Model space, where commands work.
    void showModelSpace();
    QTabBar& spaces() { return *m_spaces; }

private:
    QWidget* waitingPage();
    QWidget* drawingPage();
    void fillSpaces();

    std::string m_path;
    std::unique_ptr<OpenDocument> m_document;
    std::function<void()> m_cancel;
    QStackedLayout* m_pages;
    DrawingView* m_view = nullptr;
    QTabBar* m_spaces = nullptr;
};

} // namespace desktop
