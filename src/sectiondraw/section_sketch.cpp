#include "sectiondraw/section_sketch.h"

#include "dbkit/placing.h"
#include "dbkit/symbol_block.h"
#include "sectiondraw/label_parts.h"
#include "sectiondraw/marking.h"
#include "sections/records.h"

void SectionSketch::place(const RowPlacement& row)
{
    m_run.ensureLayer(*row.symbolStyle);
    m_run.ensureLayer(*row.labelStyle);
    if (row.symbol != nullptr)
    {
        const auto block = m_run.blocks.load(row.symbol->m_strFile);
        if (!block)
            return;
        for (const auto& point : row.places)
            if (point)
                append(MakeSymbol(*point, *block, *row.symbol), *row.symbolStyle);
    }
    if (row.label == nullptr)
        return;
    for (const auto& point : row.places)
        if (point)
            placeLabel(*point, row);
}

AcDbObjectId SectionSketch::append(std::unique_ptr<AcDbEntity> entity, const OptionStyle& style)
{
    if (!style.layer.empty())
        entity->setLayer(style.layer);
    if (style.color >= 1 && style.color <= 255)
        entity->setColorIndex(style.color);
    AcDbObjectId id;
    AppendToSpace(std::move(entity), id);
    m_section.m_arrDrawnIds.push_back(id);
    return id;
}

void SectionSketch::placeLabel(const AcGePoint3d& ground, const RowPlacement& row)
{
    for (std::unique_ptr<AcDbEntity>& part : MakeLabel(ground, m_run.fontText.convert(*row.label), m_run.style))
    {
        const AcDbObjectId id = append(std::move(part), *row.labelStyle);
        if (row.isMarked)
            MarkGeoPoint(id, *row.label);
    }
}
