#include "settings/drawing_settings.h"

#include "host/companion/project_config.h"
#include "host/db/host_services.h"
#include "util/document_lock.h"

namespace
{

std::u16string KeyOf(AcDbObjectId alignment)
{
    char16_t handle[256] = {};
    alignment.handle().getIntoAsciiBuffer(handle, std::size(handle));
    return std::u16string{u"DICTIONARY_DSS_"} + handle;
}

/// The current drawing if the alignment is one of its own, else null.
AcDbDatabase* DrawingOf(AcDbObjectId alignment)
{
    AcDbDatabase* database = acdbHostApplicationServices()->workingDatabase();
    return !alignment.isNull() && alignment.database() == database ? database : nullptr;
}

} // namespace

std::vector<std::u16string> ReadDrawingSettings(AcDbObjectId alignment)
{
    std::vector<std::u16string> lines;
    AcDbDatabase* database = DrawingOf(alignment);
    if (database == nullptr || ProjectConfig::Read(database, KeyOf(alignment), lines) == 0)
        return {};
    return lines;
}

std::optional<GeneralTexts> ReadDrawingNumbers(AcDbObjectId alignment)
{
    return ParseGeneralLine(SplitSections(ReadDrawingSettings(alignment), GeneralSection::kLast).general);
}

void WriteDrawingSettings(AcDbObjectId alignment, const std::vector<std::u16string>& lines)
{
    const OpenForWrite lock;
    AcDbDatabase* database = DrawingOf(alignment);
    if (database != nullptr && !lines.empty())
        ProjectConfig::Write(database, KeyOf(alignment), lines);
}
