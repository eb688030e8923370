#pragma once

#include "desktop/view/scene.h"
#include "desktop/view/view_frame.h"
#include "desktop/view/view_picture.h"
#include "store/object_id.h"

#include <QPointF>
#include <QWidget>

#include <memory>
#include <optional>
#include <set>
#include <string>
#include <unordered_set>
#include <vector>

namespace desktop
{

/// Shows one space of a drawing and lets the user look around in it: wheel (about the cursor), middle button (drag; two
/// clicks show everything), arrow keys, a window drawn with the left button while one is asked for, measuring. It
/// changes nothing in the drawing and nothing in what the host's view shows: the owner does, on `viewChanged`.
class DrawingView : public QWidget
{
    Q_OBJECT

public:
    explicit DrawingView(QWidget* parent = nullptr);
    ~DrawingView() override;

    /// Shows model space of a drawing, all of it; null shows an empty ground. Several views may share a scene.
    void setScene(std::shared_ptr<Scene> scene);
    const std::shared_ptr<Scene>& scene() const { return m_scene; }
    /// Shows another space of the drawing, by its block record (null: model space), all of it.
    void setSpace(const ObjectRecord* block);
    const ObjectRecord* space() const { return m_space; }

    ViewFrame frame() const { return m_frame; }
    void setFrame(const ViewFrame& frame);
    /// The rectangle of the plan that is seen, drawing units.
    Box2d shownBox() const;
    void zoomExtents();
    /// Shows a box with `margin` times its size around it.
    void zoomTo(const Box2d& box, double margin = 0.05);
    /// Larger than 1 comes nearer; `about` stays where it is on the screen.
    void zoomBy(double factor, QPointF about);
    /// Moves what is seen by so many pixels.
    void pan(QPointF pixels);

    /// Entities that stand out, in place of those that did. Those of other spaces do no harm.
    void setHighlighted(std::vector<AcDbObjectId> entities);
    /// The box around entities of this space, drawing units; empty where none of them shows anything.
    Box2d boxOf(const std::vector<AcDbObjectId>& entities) const;
    /// Leaves entities and whole layers (by name) out of this view; the drawing knows nothing of it.
    void setHidden(std::unordered_set<AcDbObjectId> entities, std::set<std::u16string> layers);
    void setBackground(picture::Rgb background);
    picture::Rgb background() const { return m_background; }
    /// A cross over the whole view where the cursor is.
    void setCrosshair(bool on);

    /// The entity that is drawn at a place of the widget, the topmost within a few pixels; null when there is none.
    AcDbObjectId pick(QPointF at) const;
    picture::Vertex toWorld(QPointF at) const;
    QPointF toWidget(const picture::Vertex& world) const;

    /// What the left button does.
    enum class Tool
    {
        kPick,   ///< a click picks; a drag draws a window, told by `windowDrawn`
        kWindow, ///< two corners, by dragging or by two clicks, are zoomed to
        kMeasure ///< clicks measure; a click with the right button or Escape ends it
    };
    void setTool(Tool tool);
    Tool tool() const { return m_tool; }
    /// What Escape does: a window or a measured line that is begun is given up, then the tool itself; false when there
    /// was nothing to give up.
    bool cancel();
    /// Keys that look around (arrows, Page keys and + and - are not among them); false when the key is another one.
    bool handleKey(int key, Qt::KeyboardModifiers modifiers);

    /// Whether all that is seen is sharp: nothing is being painted.
    bool isSharp() const { return m_picture.isSharp(); }

signals:
    void cursorMoved(double x, double y);
    void cursorLeft();
    /// A click with the left button while the tool picks; the entity is null beside everything.
    void picked(AcDbObjectId entity, double x, double y);
    /// A window drawn by dragging while the tool picks; `isCrossing` when drawn from right to left.
    void windowDrawn(Box2d box, bool isCrossing);
    /// Distance of the last piece and of all pieces, drawing units.
    void measured(double piece, double total, double dx, double dy);
    void toolChanged();
    /// The user or a function moved what is seen.
    void viewChanged();
    /// Everything that is seen became sharp.
    void sharp();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void leaveEvent(QEvent* event) override;

private:
    const picture::DisplayList* list() const;
    void changeFrame(const ViewFrame& frame);
    void showFrame();
    void showHidden();
    void showHighlighted();
    void paintTool(QPainter& painter);
    void paintMeasured(QPainter& painter, const QColor& color);
    void tellMeasured(const picture::Vertex& at);
    void finishWindow(QPointF at);

    std::shared_ptr<Scene> m_scene;
    const ObjectRecord* m_space = nullptr;
    ViewFrame m_frame;
    picture::Rgb m_background = 0x1E1E1E;
    bool m_hasCrosshair = true;
    std::vector<AcDbObjectId> m_highlighted;
    std::unordered_set<AcDbObjectId> m_hidden;
    std::set<std::u16string> m_hiddenLayers;

    Tool m_tool = Tool::kPick;
    std::optional<QPointF> m_cursor;
    std::optional<QPointF> m_pressed;        ///< where the left button went down, or the first corner was clicked
    bool m_isDown = false;                   ///< the left button
    std::optional<QPointF> m_dragged;        ///< where the middle button was last
    std::vector<picture::Vertex> m_measured; ///< drawing units

    ViewPicture m_picture;
};

} // namespace desktop
