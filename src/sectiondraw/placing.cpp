#include "sectiondraw/placing.h"

#include "dbkit/placing.h"
#include "host/drawing/block_reference.h"
#include "host/drawing/polyline.h"
#include "host/drawing/text_entity.h"
#include "sectiondraw/marking.h"
#include "sections/records.h"

#include <initializer_list>

namespace
{

constexpr double kLeastLeader = 0.001;
constexpr double kTextLift = 0.1;
constexpr double kArrowhead = 0.2; ///< half its width, and its height
constexpr double kBlockScaleZ = 1.0;

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

AcDbObjectId PlaceEntity(std::unique_ptr<AcDbEntity> entity, const OptionStyle& look, CrossSectionXdata& section)
{
    if (!look.layer.empty())
        entity->setLayer(look.layer);
    if (look.color >= 1 && look.color <= 255)
        entity->setColorIndex(look.color);
    AcDbObjectId id;
    AppendToSpace(std::move(entity), id);
    section.m_arrDrawnIds.push_back(id);
    return id;
}

template <class Row>
void PlaceBlock(const AcGePoint3d& point, AcDbObjectId block, const Row& row, const OptionStyle& look,
                CrossSectionXdata& section)
{
    auto reference = std::make_unique<AcDbBlockReference>(point, block);
    reference->setScaleFactors({row.m_dScaleX, row.m_dScaleY, kBlockScaleZ});
    reference->setRotation(row.m_dRotation);
    PlaceEntity(std::move(reference), look, section);
}

template void PlaceBlock(const AcGePoint3d&, AcDbObjectId, const BlockData&, const OptionStyle&, CrossSectionXdata&);
template void PlaceBlock(const AcGePoint3d&, AcDbObjectId, const BlockFcode&, const OptionStyle&, CrossSectionXdata&);

void PlaceLabel(const AcGePoint3d& ground, const Label& label, const OptionStyle& look, CrossSectionXdata& section,
                DrawingRun& run)
{
    const auto place = [&](std::unique_ptr<AcDbEntity> entity)
    {
        const AcDbObjectId id = PlaceEntity(std::move(entity), look, section);
        if (label.mark != nullptr)
            MarkGeoPoint(id, *label.mark);
    };

    AcGePoint3d base = ground;
    if (const double height = run.style.deltaY; height > kLeastLeader)
    {
        base += AcGeVector3d::kYAxis * (height + kTextLift);
        place(leader(ground, height));
        place(arrowhead(ground));
    }
    place(text(base, run.fontText.convert(label.text), run.style));
}
