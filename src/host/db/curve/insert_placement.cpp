#include "host/db/curve/insert_placement.h"

#include "store/pair_edit.h"

#include <algorithm>
#include <numbers>

namespace
{

/// Rows or columns: at least one, at most what the file format holds.
int countOf(const Tag& tag)
{
    return static_cast<int>(std::clamp<int64_t>(tag.integer(), 1, 32767));
}

} // namespace

AcGeMatrix3d InsertPlacement::toWorld(size_t index) const
{
    const auto column = static_cast<double>(index % static_cast<size_t>(columns));
    const size_t rowIndex = index / static_cast<size_t>(columns);
    const auto row = static_cast<double>(rowIndex);
    const AcGeVector3d step{column * columnSpacing, row * rowSpacing, 0.0};
    return AcGeMatrix3d::planeToWorld(normal) * AcGeMatrix3d::translation(position.asVector()) *
           AcGeMatrix3d::rotation(rotation) * AcGeMatrix3d::translation(step) *
           AcGeMatrix3d::scaling(scaleX, scaleY, scaleZ);
}

InsertPlacement readInsertPlacement(std::string_view text)
{
    InsertPlacement insert;
    OwnPairs pairs{text};
    for (Tag tag; pairs.next(tag);)
        switch (tag.code)
        {
        case 2:
            insert.block = tag.word();
            break;
        case 10:
            insert.position = pairs.pointFrom(tag);
            break;
        case 41:
            insert.scaleX = tag.real();
            break;
        case 42:
            insert.scaleY = tag.real();
            break;
        case 43:
            insert.scaleZ = tag.real();
            break;
        case 44:
            insert.columnSpacing = tag.real();
            break;
        case 45:
            insert.rowSpacing = tag.real();
            break;
        case 50:
            insert.rotation = tag.real() * std::numbers::pi / 180.0;
            break;
        case 70:
            insert.columns = countOf(tag);
            break;
        case 71:
            insert.rows = countOf(tag);
            break;
        case 210:
            insert.normal = pairs.pointFrom(tag).asVector();
            break;
        default:
            break;
        }
    return insert;
}
