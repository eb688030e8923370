#include "settings/draw_color.h"

#include "host/db/database.h"
#include "host/db/host_services.h"
#include "host/db/table/symbol_tables.h"
#include "host/text.h"
#include "host/ui/color_names.h"

namespace
{

constexpr int kForeground = 7;

int CurrentLayerColor()
{
    AcDbDatabase* database = acdbHostApplicationServices()->workingDatabase();
    if (database == nullptr)
        return kForeground;
    const AcDbObjectPointer<AcDbLayerTableRecord> layer{database->clayer()};
    return layer ? layer->color().colorIndex() : kForeground;
}

} // namespace

int DrawColorOf(std::u16string_view name)
{
    if (equalNoCase(name, u"ByLayer"))
        return CurrentLayerColor();
    if (equalNoCase(name, u"ByBlock"))
        return kForeground;
    return colorOfName(name).value_or(kForeground);
}
