#include "sectiondraw/label_parts.h"

#include "host/db/entity/polyline.h"
#include "host/db/entity/text_entity.h"
#include "sectiondraw/draw_style.h"

#include <initializer_list>

namespace
{

constexpr double kLeastLeader = 0.001;
constexpr double kTextLift = 0.1;
constexpr double kArrowhead = 0.2; ///< half its width, and its height

std::unique_ptr<AcDbPolyline> polyline(std::initializer_list<AcGePoint2d> points)
{
    auto line = std::make_unique<AcDbPolyline>(static_cast<unsigned>(points.size()));
    for (const AcGePoint2d& point : points)
        line->addVertexAt(line->numVerts(), point);
    return line;
}

std::unique_ptr<AcDbPolyline> leader(const AcGePoint3d& ground, double height)
{
    return polyline({{ground.x, ground.y}, {ground.x, ground.y + height}});
}

std::unique_ptr<AcDbPolyline> arrowhead(const AcGePoint3d& tip)
{
    return polyline(
        {{tip.x - kArrowhead, tip.y + kArrowhead}, {tip.x, tip.y}, {tip.x + kArrowhead, tip.y + kArrowhead}});
}

std::unique_ptr<AcDbText> text(const AcGePoint3d& point, const std::u16string& string, const DrawStyle& style)
{
    auto text = std::make_unique<AcDbText>();
    text->setTextString(string);
    text->setHeight(style.textHeight);
    text->setTextStyle(style.textStyle);
    text->setHorizontalMode(AcDb::kTextCenter);
    text->setAlignmentPoint(point);
    text->setPosition(point);
    return text;
}

} // namespace

std::vector<std::unique_ptr<AcDbEntity>> MakeLabel(const AcGePoint3d& ground, const std::u16string& fontText,
                                                   const DrawStyle& style)
{
    std::vector<std::unique_ptr<AcDbEntity>> parts;
    AcGePoint3d base = ground;
    if (const double height = style.deltaY; height > kLeastLeader)
    {
        base += AcGeVector3d::kYAxis * (height + kTextLift);
        parts.push_back(leader(ground, height));
        parts.push_back(arrowhead(ground));
    }
    parts.push_back(text(base, fontText, style));
    return parts;
}
