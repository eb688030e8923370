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

    /// A file is being read, which `cancel` gives up; with nothing: no longer.
    void setReading(std::function<void()> cancel);
    void cancelReading();
    /// The drawing is there: shows it, in place of an earlier one at the same place.
    void setDocument(std::unique_ptr<OpenDocument> document);
    /// Shows a space by its place among the tabs below.
    void showSpace(int index);
    bool showsModelSpace() const;
    /// Model space, where commands work.
    void showModelSpace();
    QTabBar& spaces() { return *m_spaces; }

    /// The view shows what the host's does: after a command that zooms.
    void showViewOfHost();
    /// The host's view shows what the user looks at.
    void tellHostOfView();
    /// Brings a box into the middle, nearer where it would be too small to be read.
    void lookAt(const Box2d& box);
    /// What lies in a box of the space that is shown, or at least partly when it is crossing.
    std::vector<AcDbObjectId> entitiesIn(const Box2d& box, bool isCrossing);

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
    bool m_followsHost = false; ///< the view moves because the host's did
};

} // namespace desktop
