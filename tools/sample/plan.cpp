#include "plan.h"

#include "catalogue.h"
#include "contours.h"
#include "entities.h"
#include "features.h"
#include "random.h"

#include <cmath>

namespace
{
constexpr double kHalfStrip = 60; // metres of plan to each side of the road
constexpr double kClearOfRoad = 7;
constexpr double kDegrees = 57.29577951308232;

/// The parts of a road's plan that no feature polyline belongs to.
class PlanPen
{
public:
    explicit PlanPen(const RoadDrawing& drawing)
        : m_drawing(drawing), m_road(drawing.road), m_entities(drawing.out), m_random(drawing.seed, 3)
    {
    }

    void CentreLine()
    {
        m_entities.LightPolyline("TIM_TUYEN", m_road.Parallel(0, m_road.Length(), 0), false);
        for (double at = 0; at < m_road.Length(); at += 100)
        {
            m_entities.Circle("TIM_TUYEN", m_road.At(at, 0), 1.5);
            m_entities.Text("TIM_TUYEN", m_road.At(at, -2.5), u"H" + Fixed(at / 100, 0), {.height = 2.5});
        }
        m_entities.Text("GHI_CHU", m_road.At(m_road.Length() / 2, -kHalfStrip - 12),
                        u"B×nh ®å tuyÕn " + Wide(m_road.Name()),
                        {.height = 8,
                         .rotation = m_road.At(m_road.Length() / 2).heading * kDegrees,
                         .align = Entities::Align::Centre,
                         .style = ".VnTime"});
        m_entities.Text("GHI_CHU", m_road.At(m_road.Length() - 5, -1.8), u"Đi Hà Nội",
                        {.height = 2.5, .rotation = m_road.End().heading * kDegrees, .style = "GHI_CHU"});
    }

    void Blocks()
    {
        const auto blocks = CodedBlocks();
        for (double at = 15; at < m_road.Length(); at += 40)
            m_entities.Insert("DIEN", blocks[0].block, m_road.At(at, -11),
                              {.rotation = m_road.At(at).heading * kDegrees}, blocks[0].form);
        for (double at = 25; at < m_road.Length(); at += 35)
            m_entities.Insert("DIEN", blocks[1].block, m_road.At(at, 5), {}, blocks[1].form);
        for (double at = 5; at < m_road.Length(); at += 12)
        {
            const Point point = Anywhere(at, 8);
            m_entities.Insert("THUC_VAT", blocks[2].block, point, {.scale = std::round(m_random.Between(8, 20)) / 10},
                              blocks[2].form);
        }
        for (double at = 30; at < m_road.Length(); at += 50)
            m_entities.Insert("THUY_HE", blocks[3].block, m_road.At(at, 5.1), {}, blocks[3].form);
    }

    void Vegetation()
    {
        for (double at = 0; at < m_road.Length(); at += 0.55)
        {
            const Point point = Anywhere(at, 14);
            m_entities.Insert("THUC_VAT", m_random.Percent(70) ? "LUA" : "MAU", point, {});
        }
    }

    void Heights()
    {
        for (double at = 0; at < m_road.Length(); at += 0.5)
        {
            const double offset = m_random.Between(-kHalfStrip, kHalfStrip);
            const Point point = m_road.At(at, offset);
            const double height = m_drawing.terrain.Height(m_road, at, offset);
            m_entities.Dot("DO_CAO", point, height);
            m_entities.Text("DO_CAO", {point.x + 0.4, point.y + 0.3}, Fixed(height, 2), {.height = 1});
        }
    }

    void Hachures()
    {
        bool whole = false;
        for (double at = 0; at < m_road.Length(); at += 1.5)
        {
            whole = !whole;
            m_entities.Line("TALUY", m_road.At(at, -5), m_road.At(at, whole ? -7.3 : -6.2));
            m_entities.Line("TALUY", m_road.At(at, 8.3), m_road.At(at, whole ? 6 : 7.1));
        }
    }

    void Points(int count)
    {
        const auto codes = PointCodes();
        for (int i = 0; i < count; ++i)
        {
            const double at = m_road.Length() * (i + m_random.Between(0, 1)) / count;
            const double offset = m_random.Between(-kHalfStrip, kHalfStrip);
            const int code = std::abs(offset) < kClearOfRoad ? 0 : m_random.Index(static_cast<int>(codes.size()));
            const auto pick = static_cast<std::size_t>(code);
            const Point point = m_road.At(at, offset);
            m_entities.SurveyPoint(point, m_drawing.terrain.Height(m_road, at, offset), codes[pick].code);
            PointLabels(point, codes[pick].form);
        }
    }

private:
    void PointLabels(Point point, std::u16string_view form)
    {
        m_entities.Text("GHI_CHU", {point.x + 0.5, point.y - 1.5}, Wide(std::to_string(m_drawing.out.Running().points)),
                        {.height = 0.8});
        if (!form.empty())
            m_entities.Text("GHI_CHU", {point.x + 0.5, point.y + 1.6}, form, {.height = 1.2, .style = ".VnTime"});
    }

    Point Anywhere(double chainage, double clear)
    {
        return m_road.At(chainage, m_random.EitherSide(clear, kHalfStrip));
    }

    const RoadDrawing& m_drawing;
    const Road& m_road;
    Entities m_entities;
    Random m_random;
};
} // namespace

void DrawPlan(const RoadDrawing& drawing, int polylines, int points)
{
    PlanPen pen(drawing);
    pen.CentreLine();
    const int onFeatures = DrawFeatures(drawing, polylines, points / 2);
    pen.Points(points - onFeatures);
    pen.Blocks();
    DrawContours(drawing, kHalfStrip);
    pen.Heights();
    pen.Hachures();
    pen.Vegetation();
}
