#include "host/drawing/sound_entity.h"

#include "host/drawing/curve_readers.h"
#include "host/drawing/pair_edit.h"
#include "host/drawing/tags.h"
#include "store/group_codes.h"

namespace
{

bool isNeeded(std::string_view kind, const Tag& tag)
{
    if (kind == "LWPOLYLINE")
        return tag.code == 100 && tag.word() == "AcDbPolyline";
    if (kind == "HATCH")
        return tag.code == 91;
    return true;
}

} // namespace

bool isSoundEntity(std::string_view kind, std::string_view pairs)
{
    TagReader all{pairs};
    int expected = 0;
    for (Tag tag; all.next(tag);)
    {
        if (tag.code == dxf::kComment)
            continue;
        if (expected != 0 && tag.code != expected)
            return false;
        expected = dxf::isFirstCoordinate(tag.code) ? tag.code + dxf::kToSecondCoordinate : 0;
    }
    bool complete = false;
    OwnPairs own{pairs}; // what stands in a group that an application never closed does not come along
    for (Tag tag; !complete && own.next(tag);)
        complete = isNeeded(kind, tag);
    return complete && expected == 0 && (kind != "HATCH" || isWholeHatch(pairs));
}
