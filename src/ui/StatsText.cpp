#include "StatsText.h"

#include "base/ByteCount.h"
#include "base/Text.h"
#include "disposal/Ledger.h"
#include "progression/Achievement.h"
#include "progression/Progress.h"

#include <algorithm>

namespace vexmoor {
namespace {

QString grouped(std::int64_t number) {
    return QString::fromStdString(countText(number));
}

QString size(std::int64_t bytes) {
    return QString::fromStdString(byteCountText(bytes));
}

} // namespace

StatsText StatsText::of(const Ledger& ledger, const Progress& progress, Date now) {
    const std::int64_t count = ledger.count.get();
    const auto week = ledger.week(now);
    const DayTally today = week.empty() ? DayTally{} : week.back().tally;
    const auto all = Achievement::all();
    const auto unlocked = std::ranges::count_if(all, [&progress](const Achievement& achievement) {
        return std::ranges::find(progress.unlocked, achievement.id) != progress.unlocked.end();
    });
    StatsText text;
    text.count = grouped(count);
    text.countCaption = QString::fromStdString(plural("sacrifice", "sacrifices", count));
    text.bytes = size(ledger.bytes.get());
    text.bytesCaption = tr("consumed");
    text.streak = grouped(progress.streak);
    text.streakCaption = tr("day streak");
    text.today = QString::fromStdString(plural("Today: %1 item, %2", "Today: %1 items, %2",
                                               today.count, {byteCountText(today.bytes)}));
    text.achievements = tr("%1 of %2 achievements").arg(unlocked).arg(all.size());
    return text;
}

} // namespace vexmoor
