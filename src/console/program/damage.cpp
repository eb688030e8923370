#include "console/program/damage.h"

#include "console/text/json_text.h"
#include "host/db/database.h"
#include "host/view/entity_text.h"
#include "sections/survey_info.h"

#include <algorithm>

namespace console
{

namespace
{

std::string nameOf(const host::Damage& damage)
{
    return std::string{damage.database->dxfNameOf(*damage.record)} + " " +
           handleText(AcDbObjectId{const_cast<ObjectRecord*>(damage.record)});
}

std::string shown(host::Session& session, const host::Damage& damage)
{
    const AcApDocument* document = session.documents().document(damage.database);
    return (document != nullptr ? toUtf8(document->fileName()) + ": " : std::string{}) + damage.place + damage.text +
           (damage.record != nullptr ? " in " + nameOf(damage) : " in a header variable");
}

bool workRestsOn(const host::Damage& damage)
{
    if (!damage.selected || damage.record == nullptr)
        return false;
    return damage.database->dxfNameOf(*damage.record).starts_with("PLXDB") ||
           hasApplication(*damage.record, {kSurveyApplication});
}

} // namespace

std::string whatStopsTheWork(host::Session& session)
{
    const host::DamageLog& log = session.damage();
    if (log.first())
        return shown(session, *log.first());
    const auto found = std::find_if(log.met().begin(), log.met().end(), workRestsOn);
    return found != log.met().end() ? shown(session, *found) : std::string{};
}

std::vector<std::string> damagedInPassing(host::Session& session)
{
    const std::vector<host::Damage>& met = session.damage().met();
    const size_t named = std::min(met.size(), host::DamageLog::kNamed);
    std::vector<std::string> notes;
    for (size_t i = 0; i < named; ++i)
        notes.push_back((met[i].record != nullptr ? nameOf(met[i]) : std::string{"a header variable"}) +
                        " is damaged and meets nothing: " + met[i].place + met[i].text);
    if (met.size() > named)
        notes.push_back(std::to_string(met.size() - named) + " more objects are damaged and meet nothing");
    return notes;
}

} // namespace console
