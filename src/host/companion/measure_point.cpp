#include "host/companion/measure_point.h"

#include "store/pair_edit.h"

ACRX_DEFINE_MEMBERS(PlxDbPointObj, AcDbEntity, nullptr)
ACRX_DEFINE_MEMBERS(PlxDbMeasurePointObj, PlxDbPointObj, u"PLXDBMEASUREPOINTOBJ")

std::u16string PlxDbPointObj::Get(int field) const
{
    const auto found = m_fields.find(field);
    return found != m_fields.end() ? found->second : std::u16string{};
}

Acad::ErrorStatus PlxDbPointObj::Set(int field, const std::u16string& text)
{
    const Acad::ErrorStatus status = mayChangeFresh();
    if (status == Acad::eOk)
        m_fields.insert_or_assign(field, text);
    return status;
}

Acad::ErrorStatus PlxDbPointObj::SetPoint(const AcGePoint3d& position)
{
    const Acad::ErrorStatus status = mayChangeFresh();
    if (status == Acad::eOk)
        m_position = position;
    return status;
}

void PlxDbPointObj::addExtents(AcGeExtents& extents) const
{
    extents.addPoint(m_position);
}

void PlxDbPointObj::decode(TagReader& pairs)
{
    OwnPairs own{pairs};
    int field = 0;
    bool inPoint = false;
    for (Tag tag; own.next(tag);)
        if (tag.code == 100)
            inPoint = tag.word() == "PlxDbPointObj";
        else if (!inPoint)
            continue;
        else if (tag.code == 10)
            m_position = own.pointFrom(tag);
        else if (tag.code == 70)
            field = static_cast<int>(tag.integer());
        else if (tag.code == 1)
            m_fields.insert_or_assign(field, decodeText(tag.value));
}

void PlxDbPointObj::encode(TagWriter& out) const
{
    AcDbEntity::encode(out);
    out.text(100, "PlxDbPointObj");
    out.point(10, m_position);
    for (const auto& [field, text] : m_fields)
    {
        out.integer(70, field);
        out.text(1, encodeText(text));
    }
}

void PlxDbMeasurePointObj::encode(TagWriter& out) const
{
    PlxDbPointObj::encode(out);
    out.text(100, "PlxDbMeasurePointObj");
}
