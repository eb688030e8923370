#include "host/db/damage.h"

#include "host/db/database.h"
#include "host/db/host_services.h"

#include <algorithm>
#include <iterator>

namespace host
{

namespace
{

DamageLog* currentLog()
{
    return acdbHostApplicationServices()->damageLog();
}

/// The line of the pair's value in the drawing's file; 0 when it stands in no line of it.
uint64_t lineOf(const DrawingStore& store, const Tag& tag)
{
    if (!store.hasLines || !store.file.contains(tag.begin))
        return 0;
    return static_cast<uint64_t>(std::count(store.file.view().data(), tag.begin, '\n')) + 2;
}

} // namespace

std::string textOf(const Tag& tag)
{
    constexpr size_t kShown = 40;
    const std::string_view value = tag.word();
    std::string shown;
    for (const char c : value.substr(0, kShown))
        shown += static_cast<unsigned char>(c) < 0x20 || c == 0x7F ? '.' : c;
    return "\"" + shown + (value.size() > kShown ? "..." : "") + "\" is no number that can stand there (group " +
           std::to_string(tag.code) + ")";
}

std::string placeOf(const DrawingStore& store, const Tag& tag)
{
    const uint64_t line = lineOf(store, tag);
    return line > 0 ? "line " + std::to_string(line) + ": " : std::string{};
}

void DamageLog::note(AcDbDatabase& database, ObjectRecord* record, const Tag& tag)
{
    const bool rests = m_passing == 0;
    const bool known = record != nullptr && record->has(ObjectRecord::kDamaged);
    if (record != nullptr)
        record->set(ObjectRecord::kDamaged, true);
    if (known && m_selecting > 0)
        for (Damage& damage : m_met)
            damage.selected = damage.selected || damage.record == record;
    if (rests ? m_first.has_value() : known)
        return;
    Damage damage{&database, record, {}, {}, m_selecting > 0};
    if (rests || m_met.size() < kNamed)
    {
        damage.place = placeOf(database.store(), tag);
        damage.text = textOf(tag);
    }
    if (rests)
        m_first = std::move(damage);
    else
        m_met.push_back(std::move(damage));
}

void DamageLog::take(DamageLog& other)
{
    if (!m_first)
        m_first = std::move(other.m_first);
    std::move(other.m_met.begin(), other.m_met.end(), std::back_inserter(m_met));
    other.m_first.reset();
    other.m_met.clear();
}

void DamageLog::forget(const AcDbDatabase& database)
{
    const auto isOf = [&](const Damage& damage) { return damage.database == &database; };
    if (m_first && isOf(*m_first))
        m_first.reset();
    std::erase_if(m_met, isOf);
}

InPassing::InPassing(Purpose purpose) : m_log{currentLog()}, m_selecting{purpose == kSelection ? 1 : 0}
{
    if (m_log == nullptr)
        return;
    ++m_log->m_passing;
    m_log->m_selecting += m_selecting;
}

InPassing::~InPassing()
{
    if (m_log == nullptr)
        return;
    --m_log->m_passing;
    m_log->m_selecting -= m_selecting;
}

void noteDamage(ObjectRecord& record, const DamagedValue& damage)
{
    if (DamageLog* log = currentLog())
        log->note(*record.database, &record, damage.tag);
    else
        record.set(ObjectRecord::kDamaged, true);
}

void noteHeaderDamage(AcDbDatabase& database, const DamagedValue& damage)
{
    if (DamageLog* log = currentLog())
        log->note(database, nullptr, damage.tag);
}

} // namespace host
