#include "desktop/panels/survey_code.h"

#include "host/app/disk.h"
#include "host/db/damage.h"
#include "host/db/entity/entity.h"
#include "host/view/entity_text.h"
#include "sections/survey_info.h"

namespace desktop
{

std::u16string surveyCodeOf(AcDbObjectId entity)
{
    if (!hasApplication(*entity.record(), {kSurveyApplication}))
        return {};
    const host::InPassing inPassing;
    const host::NothingKept noScratch;
    const AcDbObjectPointer<AcDbEntity> opened{entity};
    return opened ? SurveyInfoReader{}.codeOf(*opened).value_or(std::u16string{}) : std::u16string{};
}

} // namespace desktop
