#include "ui/StatsText.h"
#include "ui/WeekText.h"

#include "support/FakeClock.h"
#include "support/InMemoryDefaults.h"

#include "disposal/Ledger.h"
#include "progression/Progress.h"

#include <gtest/gtest.h>

namespace vexmoor {
namespace {

using namespace test;

TEST(StatsTextTest, FormatsThousandsAndPlurals) {
    struct Case {
        int count;
        std::int64_t bytesEach;
        std::int64_t streak;
        QStringList shown;
    };
    for (const auto& [count, bytesEach, streak, shown] : {
             Case{1, 512, 1, {"1", "sacrifice", "512 bytes", "consumed", "1", "day streak"}},
             Case{1284,
                  30'000'000,
                  1200,
                  {"1,284", "sacrifices", "38.52 GB", "consumed", "1,200", "day streak"}},
         }) {
        FakeClock clock{utc("2026-11-22 12:00:00")};
        InMemoryDefaults defaults;
        Ledger ledger{defaults, clock.clock()};
        Sacrifice item;
        item.bytes = bytesEach;
        item.date = clock.now;
        ledger.record(std::vector<Sacrifice>(static_cast<std::size_t>(count), item));
        Progress progress;
        progress.streak = streak;
        const StatsText text = StatsText::of(ledger, progress);
        EXPECT_EQ(QStringList({text.count, text.countCaption, text.bytes, text.bytesCaption,
                               text.streak, text.streakCaption}),
                  shown);
    }
}

TEST(WeekTextTest, DescribesADay) {
    const Date friday = utc("2026-11-20 00:00:00");
    struct Case {
        DayTally tally;
        bool isToday;
        const char* locale;
        const char* caption;
    };
    for (const auto& [tally, isToday, locale, caption] : {
             Case{{0, 0}, true, "en_US", "Today · nothing fed"},
             Case{{1, 88'000}, true, "en_US", "Today · 1 item · 88 KB"},
             Case{{46, 1'200'000'000}, false, "en_US", "Friday, November 20 · 46 items · 1.2 GB"},
             Case{{0, 0}, false, "en_GB", "Friday, 20 November · nothing fed"},
             Case{{0, 0}, false, "de_DE", "Freitag, 20. November · nothing fed"},
             Case{{0, 0}, false, "es_ES", "viernes, 20 de noviembre · nothing fed"},
             Case{{0, 0}, false, "ja_JP", "2026年11月20日金曜日 · nothing fed"},
         })
        EXPECT_EQ(WeekText::caption({friday, tally}, isToday, QLocale(locale)), caption);
}

} // namespace
} // namespace vexmoor
