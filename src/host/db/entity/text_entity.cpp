#include "host/db/entity/text_entity.h"

#include "host/db/database.h"
#include "store/pair_edit.h"
#include "store/table_index.h"

#include <algorithm>
#include <numbers>

ACRX_DEFINE_MEMBERS(AcDbText, AcDbEntity, u"TEXT")

Acad::ErrorStatus AcDbText::setTextString(const std::u16string& text)
{
    const Acad::ErrorStatus status = mayChangeFresh();
    if (status == Acad::eOk)
        m_text = text;
    return status;
}

Acad::ErrorStatus AcDbText::setHeight(double height)
{
    const Acad::ErrorStatus status = mayChangeFresh();
    if (status == Acad::eOk)
        m_height = height;
    return status;
}

Acad::ErrorStatus AcDbText::setTextStyle(AcDbObjectId style)
{
    const Acad::ErrorStatus status = mayChangeFresh();
    if (status == Acad::eOk)
        m_style = style;
    return status;
}

Acad::ErrorStatus AcDbText::setHorizontalMode(AcDb::TextHorzMode mode)
{
    const Acad::ErrorStatus status = mayChangeFresh();
    if (status == Acad::eOk)
        m_horizontal = mode;
    return status;
}

Acad::ErrorStatus AcDbText::setVerticalMode(AcDb::TextVertMode mode)
{
    const Acad::ErrorStatus status = mayChangeFresh();
    if (status == Acad::eOk)
        m_vertical = mode;
    return status;
}

Acad::ErrorStatus AcDbText::setRotation(double radians)
{
    const Acad::ErrorStatus status = mayChangeFresh();
    if (status == Acad::eOk)
        m_rotation = radians;
    return status;
}

Acad::ErrorStatus AcDbText::setPosition(const AcGePoint3d& point)
{
    const Acad::ErrorStatus status = mayChangeFresh();
    if (status == Acad::eOk)
        m_position = point;
    return status;
}

Acad::ErrorStatus AcDbText::setAlignmentPoint(const AcGePoint3d& point)
{
    const Acad::ErrorStatus status = mayChangeFresh();
    if (status == Acad::eOk)
        m_alignment = point;
    return status;
}

Acad::ErrorStatus AcDbText::transformBy(const AcGeMatrix3d& matrix)
{
    if (const Acad::ErrorStatus status = mayChangeFresh(); status != Acad::eOk)
        return status;
    const AcGeMatrix3d toWorld = AcGeMatrix3d::planeToWorld(m_normal);
    const AcGeVector3d along = matrix * (toWorld * AcGeVector3d{std::cos(m_rotation), std::sin(m_rotation), 0.0});
    m_normal = (matrix * m_normal).normal();
    const AcGeMatrix3d toPlane = AcGeMatrix3d::worldToPlane(m_normal);
    const AcGeVector3d inPlane = toPlane * along;
    m_position = toPlane * (matrix * (toWorld * m_position));
    m_alignment = toPlane * (matrix * (toWorld * m_alignment));
    m_rotation = std::atan2(inPlane.y, inPlane.x);
    m_height *= along.length();
    return Acad::eOk;
}

void AcDbText::addExtents(AcGeExtents& extents) const
{
    extents.addPoint(AcGeMatrix3d::planeToWorld(m_normal) * m_position);
}

void AcDbText::decode(TagReader& pairs)
{
    std::u16string style = u"Standard";
    OwnPairs own{pairs};
    for (Tag tag; own.next(tag);)
        switch (tag.code)
        {
        case 1:
            m_text = decodeText(tag.value);
            break;
        case 7:
            style = decodeText(tag.word());
            break;
        case 10:
            m_position = own.pointFrom(tag);
            break;
        case 11:
            m_alignment = own.pointFrom(tag);
            break;
        case 40:
            m_height = tag.real();
            break;
        case 50:
            m_rotation = tag.real() * std::numbers::pi / 180.0;
            break;
        case 72:
            m_horizontal =
                static_cast<AcDb::TextHorzMode>(std::clamp<int64_t>(tag.integer(), AcDb::kTextLeft, AcDb::kTextFit));
            break;
        case 73:
            m_vertical =
                static_cast<AcDb::TextVertMode>(std::clamp<int64_t>(tag.integer(), AcDb::kTextBase, AcDb::kTextTop));
            break;
        case 210:
            m_normal = own.pointFrom(tag).asVector();
            break;
        default:
            break;
        }
    m_style = AcDbObjectId{database()->tables().find("STYLE", style)};
}

void AcDbText::encode(TagWriter& out) const
{
    AcDbEntity::encode(out);
    out.text(100, "AcDbText");
    out.point(10, m_position);
    out.real(40, m_height);
    out.text(1, encodeText(m_text));
    if (m_rotation != 0.0)
        out.real(50, m_rotation * 180.0 / std::numbers::pi);
    if (!m_style.isNull() && m_style.record()->length > 0)
        out.text(7, spellingOf(*m_style.record()));
    if (m_horizontal != AcDb::kTextLeft)
        out.integer(72, m_horizontal);
    if (m_horizontal != AcDb::kTextLeft || m_vertical != AcDb::kTextBase)
        out.point(11, m_alignment);
    out.point(210, {m_normal.x, m_normal.y, m_normal.z});
    out.text(100, "AcDbText");
    if (m_vertical != AcDb::kTextBase)
        out.integer(73, m_vertical);
}
