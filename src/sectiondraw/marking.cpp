#include "sectiondraw/marking.h"

#include "dbkit/resbuf_chain.h"
#include "host/db/object.h"

namespace
{

constexpr const char16_t* kApplication = u"PLX_GEOPOINT";

constexpr int kApplicationName = 1001;
constexpr int kControl = 1002;
constexpr int kString = 1000;

CResbuf geoPointData(const std::u16string& code)
{
    const CResbuf opening(CResbuf(kApplication, kApplicationName), CResbuf(u"{", kControl));
    const CResbuf content(CResbuf(code, kString), CResbuf(u"}", kControl));
    return {opening, content};
}

} // namespace

void MarkGeoPoint(AcDbObjectId id, const std::u16string& code)
{
    const AcDbObjectPointer<AcDbObject> object(id);
    if (!object)
        return;
    acdbRegApp(kApplication);
    if (object->upgradeOpen() == Acad::eOk)
        object->setXData(geoPointData(code).head());
}
