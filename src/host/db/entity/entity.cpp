#include "host/db/entity/entity.h"

#include "host/db/curve/entity_curves.h"
#include "host/db/damage.h"
#include "host/db/database.h"
#include "host/db/host_services.h"
#include "store/group_codes.h"
#include "store/pair_edit.h"
#include "store/table_index.h"

#include <algorithm>

ACRX_DEFINE_MEMBERS(AcDbEntity, AcDbObject, nullptr)
ACRX_DEFINE_MEMBERS(AcDbCurve, AcDbEntity, nullptr)

namespace
{

constexpr int kByLayer = 256;

/// Where a common pair that is missing belongs: behind the layer, else at the head of the entity's pairs.
const char* placeForCommonPair(std::string_view text)
{
    const char* head = text.data();
    const char* marker = nullptr;
    OwnPairs pairs{text};
    for (Tag tag; pairs.next(tag);)
    {
        if (tag.code == dxf::kLayer)
            return tag.end;
        if (tag.code == dxf::kClassMarker && marker == nullptr)
            marker = tag.end;
        if (tag.code == dxf::kType || tag.code == dxf::kHandle || (tag.code == dxf::kOwner && marker == nullptr))
            head = tag.end;
    }
    return marker != nullptr ? marker : head;
}

bool isOldColor(int code)
{
    return code == dxf::kTrueColor || code == dxf::kColorName;
}

/// The text with one common pair replaced or added. A palette colour drives out the true colour.
std::string withCommonPair(std::string_view text, int code, std::string_view pair)
{
    PairEdit edit{text};
    OwnPairs search{text};
    bool found = false;
    for (Tag tag; !found && search.next(tag);)
        found = tag.code == code;
    const char* place = found ? nullptr : placeForCommonPair(text);
    if (place == text.data())
        edit.insert(place, pair);
    bool done = false;
    OwnPairs pairs{text};
    for (Tag tag; pairs.next(tag);)
    {
        if (tag.code == code && !done)
        {
            edit.replace(tag, pair);
            done = true;
        }
        else if (code == dxf::kColor && isOldColor(tag.code))
            edit.replace(tag, {});
        if (tag.end == place)
            edit.insert(place, pair);
    }
    return edit.take();
}

AcDbDatabase* databaseFor(const AcDbObject& object)
{
    return object.database() != nullptr ? object.database() : acdbHostApplicationServices()->workingDatabase();
}

template <class Change>
void changeSubEntities(const AcDbEntity& entity, const Change& change)
{
    for (ObjectRecord* part : subEntitiesOf(*entity.objectId().record()))
    {
        const AcDbObjectPointer<AcDbEntity> opened{AcDbObjectId{part}, AcDb::kForWrite};
        if (opened)
            change(*opened);
    }
}

/// Points where two sets of curves meet, in order along each curve of `a`.
void intersectAll(const std::vector<CurvePath>& a, const std::vector<CurvePath>& b, AcGePoint3dArray& points)
{
    AcGePoint3dArray met;
    for (const CurvePath& own : a)
    {
        std::vector<std::pair<double, AcGePoint3d>> along;
        for (const CurvePath& other : b)
        {
            intersect(own, other, met);
            for (const AcGePoint3d& point : met)
                along.emplace_back(own.distAtPoint(point).value_or(0.0), point);
        }
        std::stable_sort(along.begin(), along.end(),
                         [](const auto& one, const auto& two) { return one.first < two.first; });
        for (size_t i = 0; i < along.size(); ++i)
            if (i == 0 || !along[i].second.isEqualTo(along[i - 1].second))
                points.push_back(along[i].second);
    }
}

} // namespace

bool AcDbEntity::mayChange()
{
    if (objectId().isNull() || isWriteEnabled())
        return true;
    assertWriteEnabled();
    return false;
}

Acad::ErrorStatus AcDbEntity::mayChangeAppended()
{
    if (!mayChange())
        return Acad::eNotOpenForWrite;
    return isFresh() ? Acad::eOk : Acad::eNotImplementedYet;
}

std::u16string AcDbEntity::layer() const
{
    if (isFresh())
        return m_layer.empty() ? u"0" : m_layer;
    OwnPairs own{pairs()};
    for (Tag tag; own.next(tag);)
        if (tag.code == dxf::kLayer)
            return decodeText(tag.word());
    return u"0";
}

AcDbObjectId AcDbEntity::layerId() const
{
    AcDbDatabase* drawing = databaseFor(*this);
    return drawing != nullptr ? AcDbObjectId{drawing->tables().find("LAYER", layer())} : AcDbObjectId{};
}

Acad::ErrorStatus AcDbEntity::setLayer(const char16_t* name, bool doSubents, bool)
{
    AcDbDatabase* drawing = databaseFor(*this);
    if (drawing == nullptr)
        return Acad::eNoDatabase;
    if (drawing->tables().find("LAYER", name) == nullptr)
        return Acad::eKeyNotFound;
    if (!mayChange())
        return Acad::eNotOpenForWrite;
    if (isFresh())
    {
        m_layer = name;
        return Acad::eOk;
    }
    TagWriter pair;
    pair.text(dxf::kLayer, drawing->tables().spelling("LAYER", name));
    setPairs(withCommonPair(pairs(), dxf::kLayer, pair.view()));
    if (doSubents)
        changeSubEntities(*this, [&](AcDbEntity& part) { part.setLayer(name); });
    return Acad::eOk;
}

int AcDbEntity::colorIndex() const
{
    if (isFresh())
        return m_color;
    OwnPairs own{pairs()};
    for (Tag tag; own.next(tag);)
        if (tag.code == dxf::kColor)
            return static_cast<int>(std::clamp<int64_t>(tag.integerOr(kByLayer), 0, kByLayer));
    return kByLayer;
}

Acad::ErrorStatus AcDbEntity::setColorIndex(int index, bool doSubents)
{
    if (index < 0 || index > kByLayer)
        return Acad::eInvalidInput;
    if (!mayChange())
        return Acad::eNotOpenForWrite;
    if (isFresh())
    {
        m_color = index;
        return Acad::eOk;
    }
    TagWriter pair;
    pair.integer(dxf::kColor, index);
    setPairs(withCommonPair(pairs(), dxf::kColor, pair.view()));
    if (doSubents)
        changeSubEntities(*this, [&](AcDbEntity& part) { part.setColorIndex(index); });
    return Acad::eOk;
}

Acad::ErrorStatus AcDbEntity::transformBy(const AcGeMatrix3d&)
{
    return Acad::eNotImplementedYet;
}

Acad::ErrorStatus AcDbEntity::intersectWith(const AcDbEntity* other, AcDb::Intersect type,
                                            AcGePoint3dArray& points) const
{
    if (other == nullptr)
        return Acad::eNullObjectPointer;
    if (type != AcDb::kOnBothOperands)
        return Acad::eNotImplementedYet;
    const IndexedPath* indexed = path();
    const CurvePath* shapeOfOther = other->shape();
    if (indexed != nullptr && shapeOfOther != nullptr && points.empty())
        indexed->intersect(*shapeOfOther, points);
    else
        addIntersections(*other, points);
    return Acad::eOk;
}

/// The way for all but the commonest case.
void AcDbEntity::addIntersections(const AcDbEntity& other, AcGePoint3dArray& points) const
{
    const CurvePath* own = shape();
    const CurvePath* others = other.shape();
    if (own == nullptr || others == nullptr)
        return intersectAll(curves(), other.curves(), points);
    AcGePoint3dArray met;
    if (const IndexedPath* indexed = path())
        indexed->intersect(*others, met);
    else
        intersect(*own, *others, met);
    points.insert(points.end(), met.begin(), met.end());
}

std::vector<CurvePath> AcDbEntity::curves() const
{
    if (isFresh())
        return {};
    ObjectRecord& record = *objectId().record();
    return host::readOf(record, [&] { return curvesOfEntity(record); });
}

void AcDbEntity::addExtents(AcGeExtents& extents) const
{
    AcGeExtents own;
    for (const CurvePath& curve : curves())
        own.addExtents(curve.extents());
    if (!own.isValid() && !isFresh())
        if (const auto point = host::readOf(*objectId().record(), [this] { return readInsertionPoint(pairs()); }))
            own.addPoint(*point);
    extents.addExtents(own);
}

void AcDbEntity::encode(TagWriter& out) const
{
    out.text(100, "AcDbEntity");
    if (objectId().record()->has(ObjectRecord::kPaperSpace))
        out.integer(67, 1);
    out.text(dxf::kLayer, database()->tables().spelling("LAYER", m_layer.empty() ? u"0" : m_layer));
    if (m_color != kByLayer)
        out.integer(dxf::kColor, m_color);
}

Acad::ErrorStatus AcDbCurve::getDistAtPoint(const AcGePoint3d& point, double& distance) const
{
    for (const CurvePath& curve : curves())
        if (const std::optional<double> found = curve.distAtPoint(point))
        {
            distance = *found;
            return Acad::eOk;
        }
    return Acad::eInvalidInput;
}
