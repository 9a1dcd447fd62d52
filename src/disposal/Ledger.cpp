#include "Ledger.h"

#include "base/Saturated.h"
#include "disposal/RecordJson.h"

#include <algorithm>

namespace vexmoor {

namespace {

constexpr const char* kCountKey = "ledger.count";
constexpr const char* kBytesKey = "ledger.bytes";
constexpr const char* kRecentKey = "ledger.recent";
constexpr const char* kDaysKey = "ledger.days";

} // namespace

Ledger::Ledger(UserDefaults& defaults, Clock clock)
    : count(defaults.integer(kCountKey).value_or(0)),
      bytes(defaults.integer(kBytesKey).value_or(0)), m_defaults(defaults),
      m_clock(std::move(clock)) {
    if (const auto stored = defaults.data(kRecentKey))
        recent.set(decodeSacrifices(stored->bytes).value_or(std::vector<Sacrifice>()));
    std::map<Date, DayTally> table;
    if (const auto stored = defaults.data(kDaysKey))
        table = decodeDays(stored->bytes).value_or(std::map<Date, DayTally>());
    else
        tally(table, recent.get());
    days.set(std::move(table));
}

void Ledger::record(const std::vector<Sacrifice>& items) {
    if (items.empty())
        return;
    std::int64_t totalBytes = bytes.get();
    for (const auto& item : items)
        totalBytes = saturatedSum(totalBytes, item.bytes);
    count.set(saturatedSum(count.get(), static_cast<std::int64_t>(items.size())));
    bytes.set(totalBytes);

    const auto taken = std::min(items.size(), kMaxRecent);
    std::vector<Sacrifice> newest(items.rbegin(), items.rbegin() + std::ptrdiff_t(taken));
    const auto kept = std::min(recent.get().size(), kMaxRecent - taken);
    newest.insert(newest.end(), recent.get().begin(), recent.get().begin() + std::ptrdiff_t(kept));
    recent.set(std::move(newest));

    auto table = days.get();
    tally(table, items);
    const auto latest = std::ranges::max_element(items, {}, &Sacrifice::date);
    const Date cutoff = m_calendar.startOfDay(latest->date, -kKeepDays);
    table.erase(table.begin(), table.lower_bound(cutoff));
    days.set(std::move(table));

    m_defaults.assign(kCountKey, count.get());
    m_defaults.assign(kBytesKey, bytes.get());
    saveRecent();
    m_defaults.assign(kDaysKey, UserDefaults::Data{encode(days.get())});
}

void Ledger::mark(const std::set<Uuid>& restored, const std::set<Uuid>& lost,
                  const std::set<Uuid>& deleted) {
    if (restored.empty() && lost.empty() && deleted.empty())
        return;
    const Date now = m_clock();
    auto records = recent.get();
    for (auto& record : records) {
        if (restored.contains(record.id))
            record.restored = now;
        if (lost.contains(record.id))
            record.lost = true;
        if (deleted.contains(record.id))
            record.deleted = now;
    }
    recent.set(std::move(records));
    saveRecent();
}

std::vector<Ledger::DayOfWeek> Ledger::week(Date end) const {
    std::vector<DayOfWeek> result;
    for (int offset = -6; offset <= 0; ++offset) {
        const Date day = m_calendar.startOfDay(end, offset);
        const auto found = days.get().find(day);
        result.push_back({day, found == days.get().end() ? DayTally{} : found->second});
    }
    return result;
}

void Ledger::saveRecent() {
    m_defaults.assign(kRecentKey, UserDefaults::Data{encode(recent.get())});
}

/// Reuses the day's bounds for consecutive items, since most items of a batch have the same day.
void Ledger::tally(std::map<Date, DayTally>& table, const std::vector<Sacrifice>& items) const {
    Date start;
    Date end;
    for (const auto& item : items) {
        if (item.date < start || item.date >= end) {
            start = m_calendar.startOfDay(item.date);
            end = m_calendar.startOfDay(item.date, 1);
        }
        auto& day = table[start];
        day.count = saturatedSum(day.count, 1);
        day.bytes = saturatedSum(day.bytes, item.bytes);
    }
}

} // namespace vexmoor
