#include "section_sheet.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace
{
constexpr double kRowHeight = 14;
constexpr int kRows = 3;
constexpr double kHeadWidth = 62;
constexpr double kOverhang = 1; // metres of ground drawn beyond the extent, so that the last features find ground
constexpr double kLabelGap = 2.2;

struct GroundShot
{
    double offset;
    double height;
};

std::vector<double> Offsets(double extent, Random& random)
{
    std::vector<double> offsets{0, -kRoadEdge, kRoadEdge, -kShoulder, kShoulder, -5.1, 5.1, -5.7, 5.7};
    for (const double side : {-1.0, 1.0})
        for (double at = 6.2; at < extent + kOverhang; at += random.Between(0.45, 1.3))
            offsets.push_back(side * at);
    offsets.insert(offsets.end(), {-extent - kOverhang, extent + kOverhang});
    std::sort(offsets.begin(), offsets.end());
    return offsets;
}

std::vector<GroundShot> MeasureGround(const RoadDrawing& drawing, const SectionSheet& sheet, Random& random)
{
    std::vector<GroundShot> ground;
    for (const double offset : Offsets(sheet.extent, random))
        ground.push_back({offset, drawing.terrain.Height(drawing.road, sheet.chainage, offset)});
    return ground;
}

double DatumBelow(const std::vector<GroundShot>& ground)
{
    double lowest = std::numeric_limits<double>::max();
    for (const GroundShot& shot : ground)
        lowest = std::min(lowest, shot.height);
    return std::floor(lowest) - 2;
}

/// Whether a shot gets a column: those too close to the one `before` do not, except the road's edges.
bool IsLabelled(const GroundShot& shot, double extent, double before)
{
    if (std::abs(shot.offset) > extent)
        return false;
    return shot.offset - before >= kLabelGap || std::abs(shot.offset) == kRoadEdge;
}

/// Writes the parts of one sheet; keeps where its datum is.
class SheetPen
{
public:
    SheetPen(Entities& entities, const SectionSheet& sheet, double datum)
        : m_entities(entities), m_sheet(sheet), m_datum(datum)
    {
    }

    Handle Ground(const std::vector<GroundShot>& ground)
    {
        std::vector<Vertex> line;
        line.reserve(ground.size());
        for (const GroundShot& shot : ground)
            line.push_back({On(shot), 0, 0});
        return m_entities.LightPolyline("TN_DUONG", line, false);
    }

    void Frame()
    {
        const double half = kSheetScale * (m_sheet.extent + kOverhang);
        static constexpr std::array<std::u16string_view, kRows> kHeads{u"Cao ®é tù nhiªn", u"Kho¶ng c¸ch lÎ",
                                                                       u"Kho¶ng c¸ch céng dån"};
        for (int row = 0; row <= kRows; ++row)
            m_entities.Line("TN_KHUNG", At(-half - kHeadWidth, -row * kRowHeight), At(half, -row * kRowHeight));
        for (const double x : {-half - kHeadWidth, -half, half})
            m_entities.Line("TN_KHUNG", At(x, 0), At(x, -kRows * kRowHeight));
        for (int row = 0; row < kRows; ++row)
            m_entities.Text("TN_CHU", At(-half - kHeadWidth + 2, -row * kRowHeight - 9),
                            kHeads.at(static_cast<std::size_t>(row)), {.height = 3.5, .style = ".VnTime"});
        m_entities.Text("TN_CHU", At(-half - kHeadWidth + 2, 3), u"MSS: " + Fixed(m_datum, 2), {.height = 3.5});
    }

    void Title(double top)
    {
        m_entities.Text("TN_CHU", At(0, top + 78), u"Tªn cäc: " + std::u16string(m_sheet.name),
                        {.height = 6, .align = Entities::Align::Centre, .style = ".VnTime"});
        m_entities.Line("TIM_TUYEN", At(0, 0), At(0, top + 70));
    }

    /// The column of one shot, with the step from the shot labelled before.
    void Column(const GroundShot& shot, double before)
    {
        const Point ground = On(shot);
        m_entities.Line("TN_KHUNG", {ground.x, m_sheet.base.y}, ground);
        Upright(shot.offset, 0, Fixed(shot.height, 2));
        Upright(shot.offset, 2, Fixed(shot.offset, 2));
        m_entities.Text("TN_CHU", At(kSheetScale * (before + shot.offset) / 2, -1.5 * kRowHeight),
                        Fixed(shot.offset - before, 2), {.height = 1.8, .align = Entities::Align::Middle});
    }

    double Top(const std::vector<GroundShot>& ground) const
    {
        double top = 0;
        for (const GroundShot& shot : ground)
            top = std::max(top, On(shot).y - m_sheet.base.y);
        return top;
    }

private:
    Point At(double dx, double dy) const { return {m_sheet.base.x + dx, m_sheet.base.y + dy}; }
    Point On(const GroundShot& shot) const
    {
        return At(kSheetScale * shot.offset, kSheetScale * (shot.height - m_datum));
    }

    void Upright(double offset, int row, const std::u16string& text)
    {
        m_entities.Text("TN_CHU", At(kSheetScale * offset, -(row + 0.5) * kRowHeight), text,
                        {.height = 2, .rotation = 90, .align = Entities::Align::Middle});
    }

    Entities& m_entities;
    const SectionSheet& m_sheet;
    double m_datum;
};
} // namespace

Handle DrawSectionSheet(Entities& entities, const RoadDrawing& drawing, const SectionSheet& sheet, Random& random)
{
    const auto ground = MeasureGround(drawing, sheet, random);
    SheetPen pen(entities, sheet, DatumBelow(ground));
    const Handle handle = pen.Ground(ground);
    pen.Frame();
    pen.Title(pen.Top(ground));
    double before = -sheet.extent;
    for (const GroundShot& shot : ground)
    {
        if (!IsLabelled(shot, sheet.extent, before))
            continue;
        pen.Column(shot, before);
        before = shot.offset;
    }
    return handle;
}
