#include "survey/sheet/section_sheet.h"

#include "survey/sheet/label_columns.h"
#include "survey/sheet/shown_numbers.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace survey
{

namespace
{

constexpr double kOverhang = 0.001; ///< metres

/// Millimetres of paper.
constexpr double kHeadWidth = 46.0;
constexpr double kSideMargin = 8.0; ///< between the ends of the ground and those of the table
constexpr double kLabelRoom = 28.0; ///< over the ground, for the labels of what is drawn there later
constexpr double kTitleRoom = 16.0;
constexpr double kBottomMargin = 6.0;
constexpr double kValueHeight = 2.0; ///< of texts
constexpr double kHeadHeight = 2.2;
constexpr double kTitleHeight = 4.0;
constexpr double kLeastGap = 3.0;     ///< between two columns
constexpr double kUprightBelow = 7.0; ///< steps narrower than this stand upright
constexpr double kLadderWidth = 1.2;
constexpr double kLeastRung = 4.0; ///< between two heights of the ladder

struct Row
{
    const char16_t* head;
    double height;
};
enum RowIndex : size_t
{
    kHeights,
    kSteps,
    kOffsets,
    kName,
    kStation
};
constexpr std::array<Row, 5> kRows{{{u"Cao độ tự nhiên (m)", 14.0},
                                    {u"Cự ly lẻ (m)", 9.0},
                                    {u"Khoảng cách đến tim (m)", 14.0},
                                    {u"Tên cọc", 6.0},
                                    {u"Lý trình", 6.0}}};

double topOf(size_t row)
{
    double top = 0.0;
    for (size_t i = 0; i < row; ++i)
        top -= kRows[i].height;
    return top;
}

double middleOf(size_t row)
{
    return topOf(row) - kRows[row].height / 2.0;
}

constexpr TextLook kCentred{kValueHeight, 0.0, AcDb::kTextCenter, AcDb::kTextVertMid};
constexpr TextLook kUpright{kValueHeight, std::numbers::pi / 2.0, AcDb::kTextCenter, AcDb::kTextVertMid};

/// Whole metres between two heights of the ladder, so that they can be read: 1, 2, 5, 10, 20 ...
double rungOf(double unit)
{
    double rung = 1.0;
    for (int step = 0; rung * unit < kLeastRung; ++step)
        rung *= step % 3 == 1 ? 2.5 : 2.0;
    return rung;
}

} // namespace

double datumBelow(double lowest)
{
    constexpr double kStep = 5.0;
    return std::floor(lowest / kStep) * kStep - kStep;
}

SheetLayers::SheetLayers(DrawingPen& pen)
    : ground{pen.layer(u"TN_DUONG", 3)}, frame{pen.layer(u"TN_KHUNG", 9)}, ordinates{pen.layer(u"TN_DONG", 8)},
      text{pen.layer(u"TN_CHU", 7)}, middle{pen.layer(u"TN_TIM", 1, u"CENTER")}
{
}

SectionSheet::SectionSheet(const PlannedSection& section, const WriteOptions& options)
    : m_section{section}, m_ground{section.drawnGround()}, m_paperScale{options.scale}, m_unit{1000.0 / options.scale}
{
    double from = -options.halfWidth;
    double to = options.halfWidth;
    if (m_ground != nullptr)
    {
        const auto [lowest, highest] =
            std::minmax_element(m_ground->begin(), m_ground->end(),
                                [](const GroundPoint& a, const GroundPoint& b) { return a.elevation < b.elevation; });
        m_datum = datumBelow(lowest->elevation);
        m_ceiling = m_unit * (highest->elevation - m_datum);
        from = std::min(m_ground->front().offset, 0.0);
        to = std::max(m_ground->back().offset, 0.0);
    }
    m_left = m_unit * from - kSideMargin - kHeadWidth;
    m_right = m_unit * to + kSideMargin;
    m_bottom = topOf(kRows.size()) - kBottomMargin;
    m_top = m_ceiling + kLabelRoom + kTitleRoom;
}

/// A sheet in the making.
class SectionSheet::Sketch
{
public:
    Sketch(const SectionSheet& sheet, DrawingPen& pen, const SheetLayers& layers, const AcGePoint2d& base)
        : m_sheet{sheet}, m_pen{pen}, m_layers{layers}, m_base{base}
    {
    }

    void frame();
    void rowTexts();
    void title();
    void ladder();
    void columns();
    AcDbObjectId ground();

private:
    AcGePoint2d at(double x, double y) const { return {m_base.x + x, m_base.y + y}; }
    AcGePoint2d on(const GroundPoint& point) const
    {
        return at(m_sheet.m_unit * point.offset, m_sheet.m_unit * (point.elevation - m_sheet.m_datum));
    }
    double inner() const { return m_sheet.m_left + kHeadWidth; } ///< where the rows' heads end

    const SectionSheet& m_sheet;
    DrawingPen& m_pen;
    const SheetLayers& m_layers;
    AcGePoint2d m_base;
};

void SectionSheet::Sketch::frame()
{
    const double bottom = topOf(kRows.size());
    for (size_t row = 0; row <= kRows.size(); ++row)
        m_pen.line(m_layers.frame, at(m_sheet.m_left, topOf(row)), at(m_sheet.m_right, topOf(row)));
    for (const double x : {m_sheet.m_left, inner(), m_sheet.m_right})
        m_pen.line(m_layers.frame, at(x, 0.0), at(x, bottom));
}

void SectionSheet::Sketch::rowTexts()
{
    const TextLook head{kHeadHeight, 0.0, AcDb::kTextLeft, AcDb::kTextVertMid};
    for (size_t row = 0; row < kRows.size(); ++row)
        m_pen.text(m_layers.text, at(m_sheet.m_left + 2.0, middleOf(row)), kRows[row].head, head);
    m_pen.text(m_layers.text, at(0.0, middleOf(kName)), m_sheet.m_section.name, kCentred);
    m_pen.text(m_layers.text, at(0.0, middleOf(kStation)), m_sheet.m_section.station, kCentred);
}

void SectionSheet::Sketch::title()
{
    const double middle = (inner() + m_sheet.m_right) / 2.0;
    const double foot = m_sheet.m_top - kTitleRoom;
    TextLook look{kTitleHeight, 0.0, AcDb::kTextCenter, AcDb::kTextBase};
    m_pen.text(m_layers.text, at(middle, foot + 8.0), u"TRẮC NGANG " + m_sheet.m_section.name, look);
    look.height = kHeadHeight;
    m_pen.text(m_layers.text, at(middle, foot + 3.0), u"Tỷ lệ 1:" + fixed(m_sheet.m_paperScale, 0), look);
}

/// Heights at the left end of the ground, from the datum up.
void SectionSheet::Sketch::ladder()
{
    const double rung = rungOf(m_sheet.m_unit);
    const auto bars = static_cast<size_t>(std::ceil(m_sheet.m_ceiling / (rung * m_sheet.m_unit))) + 1;
    m_pen.ladder(m_layers.frame, at(inner(), 0.0), rung * m_sheet.m_unit, bars, kLadderWidth);
    const TextLook look{kValueHeight, 0.0, AcDb::kTextRight, AcDb::kTextVertMid};
    for (size_t i = 1; i <= bars; ++i)
        m_pen.text(m_layers.text, at(inner() - 2.0, static_cast<double>(i) * rung * m_sheet.m_unit),
                   fixed(m_sheet.m_datum + static_cast<double>(i) * rung, 0), look);
    m_pen.text(m_layers.text, at(m_sheet.m_left + 2.0, 1.5), u"MSS: " + fixed(m_sheet.m_datum, 2),
               {.height = kHeadHeight + 0.3});
}

void SectionSheet::Sketch::columns()
{
    const std::vector<GroundPoint> columns =
        labelColumns(*m_sheet.m_ground, kLeastGap / m_sheet.m_unit, m_sheet.m_section.given != nullptr);
    const GroundPoint* before = nullptr;
    for (const GroundPoint& column : columns)
    {
        const double x = m_sheet.m_unit * column.offset;
        m_pen.line(column.offset == 0.0 ? m_layers.middle : m_layers.ordinates, at(x, 0.0), on(column));
        m_pen.text(m_layers.text, at(x, middleOf(kHeights)), fixed(column.elevation, 2), kUpright);
        m_pen.text(m_layers.text, at(x, middleOf(kOffsets)), fixed(column.offset, 2), kUpright);
        m_pen.line(m_layers.frame, at(x, topOf(kSteps)), at(x, topOf(kOffsets)));
        if (before != nullptr)
        {
            const double step = column.offset - before->offset;
            m_pen.text(m_layers.text, at(x - m_sheet.m_unit * step / 2.0, middleOf(kSteps)), fixed(step, 2),
                       step * m_sheet.m_unit < kUprightBelow ? kUpright : kCentred);
        }
        before = &column;
    }
}

/// A little longer than the ground, so that what stands right at its end is found to stand on it.
AcDbObjectId SectionSheet::Sketch::ground()
{
    std::vector<PathVertex> vertices;
    const auto add = [&](const GroundPoint& point) { vertices.push_back({on(point).x, on(point).y}); };
    const GroundPiece& ground = *m_sheet.m_ground;
    add({ground.front().offset - kOverhang, ground.front().elevation});
    for (const GroundPoint& point : ground)
        add(point);
    add({ground.back().offset + kOverhang, ground.back().elevation});
    return m_pen.polyline(m_layers.ground, vertices);
}

SectionSheet::Drawn SectionSheet::draw(DrawingPen& pen, const SheetLayers& layers, const AcGePoint2d& upperLeft) const
{
    const AcGePoint2d base{std::round(upperLeft.x - m_left), std::round(upperLeft.y - m_top)};
    Sketch sketch{*this, pen, layers, base};
    Drawn drawn{{base.x, base.y, 0.0}, {}};
    sketch.frame();
    sketch.rowTexts();
    sketch.title();
    if (m_ground == nullptr)
    {
        pen.text(layers.text, {base.x, base.y + kLabelRoom / 2.0}, u"Không có đường tự nhiên", kCentred);
        return drawn;
    }
    sketch.ladder();
    sketch.columns();
    drawn.ground = sketch.ground();
    return drawn;
}

} // namespace survey
