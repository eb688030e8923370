#pragma once

#include "desktop/view/scene.h"
#include "desktop/view/view_frame.h"
#include "picture/paint/painter.h"

#include <QImage>
#include <QObject>
#include <QRect>

#include <map>
#include <memory>
#include <optional>
#include <vector>

class QPainter;

namespace desktop
{

/// The picture behind a view: tiles that threads paint, and until they are there what was painted before, moved and
/// scaled to where it belongs. One scale at a time has tiles.
class ViewPicture : public QObject
{
    Q_OBJECT

public:
    ViewPicture();
    ~ViewPicture() override;

    /// What is shown; null shows the background.
    void setSource(std::shared_ptr<Scene> scene, const ObjectRecord* space);
    void setBackground(picture::Rgb background);
    /// Takes effect with the next `invalidate`.
    void setHidden(std::shared_ptr<const picture::Hidden> hidden) { m_hidden = std::move(hidden); }
    const picture::Hidden* hidden() const { return m_hidden.get(); }
    /// Items of the space that stand out.
    void setHighlighted(std::vector<uint32_t> items);
    /// Shows this part of the plan in so many pixels of the screen, of which `ratio` make a unit of the window.
    void show(const ViewFrame& frame, QSize pixels, double ratio);
    /// The drawing changed in a box (nothing: everywhere); what is there is shown until it is painted anew.
    void invalidate(const std::optional<Box2d>& box);

    /// Paints what there is now, in window units. Waits for nothing.
    void paint(QPainter& painter);
    /// Whether all that is shown is as it should be.
    bool isSharp() const;

signals:
    /// Something of what is shown looks better now.
    void changed();
    /// All of it is as it should be.
    void becameSharp();

private:
    /// Where pixels lie in the plan. Pixel numbers count from the grid's own corner.
    struct Grid
    {
        picture::Vertex corner; ///< upper left
        double scale = 0.0;     ///< pixels in a drawing unit
        QSize tile;

        picture::Map2d toPixels(QPoint from) const;
        Box2d boxOf(const QRect& pixels) const;
    };
    struct Tile
    {
        QImage image;
        uint64_t asked = 0;                          ///< state of the drawing that is to be painted
        uint64_t painted = 0;                        ///< state of the drawing that the image shows
        std::shared_ptr<std::atomic<bool>> hasBegun; ///< a thread is at it
    };
    /// A picture of earlier that is carried to where it belongs now.
    struct Still
    {
        QImage image;
        picture::Vertex corner;
        double scale = 0.0;
    };
    using Place = std::pair<int, int>; ///< column and row of a tile

    void startGrid(const picture::Vertex& corner, double scale);
    void keepStill();
    void askForTiles();
    void askForHighlights();
    PaintQueue::Job tileJob(Place place, const std::shared_ptr<std::atomic<bool>>& hasBegun);
    void retry(uint64_t grid);
    void takeTile(uint64_t grid, Place place, uint64_t state, const QImage& image, const picture::Notes& notes);
    void takeHighlights(uint64_t asked, const Still& still);
    void forgetFarTiles();
    std::vector<Place> shownPlaces() const;
    QRect rectOf(Place place) const;
    bool isCurrent(Place place) const;
    void paintStill(QPainter& painter, const Still& still) const;
    picture::Appearance appearance() const;

    std::shared_ptr<Scene> m_scene;
    const picture::DisplayList* m_list = nullptr;
    picture::Rgb m_background = 0;
    std::shared_ptr<const picture::Hidden> m_hidden;
    std::vector<uint32_t> m_highlighted;
    Grid m_grid;
    uint64_t m_gridNumber = 0;
    uint64_t m_state = 1; ///< grows whenever what is painted would look different
    QSize m_pixels;
    double m_ratio = 1.0;
    QPoint m_offset; ///< of the window's corner in the grid
    std::map<Place, Tile> m_tiles;
    bool m_hasFreshTiles = false; ///< since the last still was kept
    Still m_still;                ///< of what was seen last
    Still m_overview;             ///< of everything
    Still m_highlights;
    uint64_t m_highlightsAsked = 0;
};

} // namespace desktop
