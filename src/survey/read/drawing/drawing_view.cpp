#include "survey/read/drawing/drawing_view.h"

#include "host/db/damage.h"
#include "host/view/entity_text.h"
#include "store/block_index.h"

#include <algorithm>

namespace survey
{

namespace
{

AcDbObjectIdArray modelSpaceOf(AcDbDatabase& drawing)
{
    if (const ObjectRecord* const space = drawing.blocks().record(u"*Model_Space"))
        return drawing.blocks().entities(*space);
    const std::vector<Container>& containers = drawing.store().containers;
    for (uint32_t i = 0; i < containers.size(); ++i)
        if (containers[i].kind == Container::kEntities)
            return drawing.blocks().entitiesIn(i, false);
    return {};
}

} // namespace

DrawingView::DrawingView(Survey& survey, uint32_t file, AcDbDatabase& drawing, const ReadOptions& options)
    : m_survey{survey}, m_findings{survey, file}, m_drawing{drawing}, m_metres{options.unit.value_or(kMetre).metres},
      m_swapped{options.swapped.contains(survey.files[file].path)}, m_lines{drawing.store().hasLines
                                                                                ? drawing.store().file.view()
                                                                                : std::string_view{}}
{
    for (const AcDbObjectId id : modelSpaceOf(drawing))
        if (ObjectRecord* const record = id.record())
            m_entities.push_back({record, drawing.dxfNameOf(*record), layerOf(*record)});
}

Place DrawingView::placeOf(const ObjectRecord& record) const
{
    const DrawingStore& store = m_drawing.store();
    if (!store.hasLines || !store.file.contains(record.text))
        return m_findings.place(0);
    return m_findings.place(m_lines.lineOf(static_cast<size_t>(record.text - store.file.view().data())));
}

AcGePoint3d DrawingView::metres(const AcGePoint3d& point) const
{
    const AcGePoint3d scaled{point.x * m_metres, point.y * m_metres, point.z * m_metres};
    return m_swapped ? AcGePoint3d{scaled.y, scaled.x, scaled.z} : scaled;
}

void DrawingView::tellDamage(const Entity& entity, const DamagedValue& damage)
{
    m_findings.unusable(placeOf(*entity.record).line, std::string{entity.kind} + ": " + host::textOf(damage.tag));
}

bool isAmong(const std::vector<std::u16string>& names, std::u16string_view name)
{
    const auto isSame = [&](const std::u16string& each) { return equalNoCase(each, name); };
    return names.empty() || std::any_of(names.begin(), names.end(), isSame);
}

} // namespace survey
