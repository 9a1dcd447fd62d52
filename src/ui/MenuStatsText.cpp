#include "MenuStatsText.h"

#include "base/ByteCount.h"
#include "base/Text.h"
#include "disposal/Ledger.h"
#include "progression/Achievement.h"
#include "progression/Progress.h"

#include <algorithm>

namespace vexmoor {
namespace {

QString qt(const std::string& text) {
    return QString::fromStdString(text);
}

std::size_t unlockedOf(const Progress& progress) {
    const auto all = Achievement::all();
    return static_cast<std::size_t>(
        std::ranges::count_if(all, [&progress](const Achievement& achievement) {
            return std::ranges::find(progress.unlocked, achievement.id) != progress.unlocked.end();
        }));
}

} // namespace

MenuStatsText MenuStatsText::of(const Ledger& ledger, const Progress& progress, Date now) {
    const std::int64_t count = ledger.count.get();
    const std::int64_t streak = progress.streak;
    const std::string bytes = byteCountText(ledger.bytes.get());
    const auto week = ledger.week(now);
    const DayTally today = week.empty() ? DayTally{} : week.back().tally;
    return {
        .statistics = {{
            {qt(countText(count)), qt(plural("sacrifice", "sacrifices", count)),
             qt(plural("%1 sacrifice", "%1 sacrifices", count))},
            {qt(bytes), qt(text("consumed")), qt(text("%1 consumed", {bytes}))},
            {qt(countText(streak)), qt(text("day streak")),
             qt(plural("%1 day streak", "%1 day streak", streak))},
        }},
        .caption = qt(plural("Today: %1 item, %2 · %3 of %4 achievements",
                             "Today: %1 items, %2 · %3 of %4 achievements", today.count,
                             {byteCountText(today.bytes),
                              countText(static_cast<std::int64_t>(unlockedOf(progress))),
                              countText(static_cast<std::int64_t>(Achievement::all().size()))})),
    };
}

QString MenuStatsText::line() const {
    return QStringLiteral("%1 · %2 · %3")
        .arg(statistics[0].whole, statistics[1].whole, statistics[2].whole);
}

} // namespace vexmoor
