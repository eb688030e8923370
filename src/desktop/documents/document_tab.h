#pragma once

#include "desktop/documents/open_document.h"
#include "desktop/sections/road_axis.h"
#include "desktop/sections/scanned_sections.h"
#include "desktop/view/drawing_view.h"

#include <QWidget>

#include <functional>
#include <memory>
#include <string>

class QLabel;
class QPushButton;
class QSplitter;
class QStackedLayout;
class QTabBar;

namespace desktop
{

/// What a tab knows of the sections of its drawing.
struct SectionsOfTab
{
    ScannedSections scanned;
    bool isScanned = false;
    std::vector<RoadAxis> axes; ///< by alignment
    std::optional<SectionPlace> current;
    std::optional<double> datum; ///< of the current section, where it can be told
    bool isDrawnHidden = false;
};

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
    /// The view of a section beside that of the plan; seen while the tab is split.
    DrawingView& sectionView() { return *m_sectionView; }
    void setSplit(bool on);
    bool isSplit() const;
    SectionsOfTab& sections() { return m_sections; }
    /// In both views.
    void highlight(const std::vector<AcDbObjectId>& entities);
    void setTool(DrawingView::Tool tool);
    /// Leaves entities and whole layers out of both; the drawing knows nothing of it.
    void hide(std::unordered_set<AcDbObjectId> entities, std::set<std::u16string> layers);

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

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget* waitingPage();
    QWidget* drawingPage();
    void fillSpaces();

    std::string m_path;
    std::unique_ptr<OpenDocument> m_document;
    std::function<void()> m_cancel;
    QStackedLayout* m_pages;
    SectionsOfTab m_sections;
    std::unordered_set<AcDbObjectId> m_hiddenEntities;
    std::set<std::u16string> m_hiddenLayers;
    QSplitter* m_splitter = nullptr;
    DrawingView* m_view = nullptr;
    DrawingView* m_sectionView = nullptr;
    QTabBar* m_spaces = nullptr;
    bool m_followsHost = false;        ///< the view moves because the host's did
    std::optional<ViewFrame> m_fitted; ///< while nobody has looked around: everything stays in view
};

} // namespace desktop
