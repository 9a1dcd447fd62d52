#include "ui/StatsText.h"

#include "support/FakeClock.h"
#include "support/InMemoryDefaults.h"

#include "disposal/Ledger.h"
#include "progression/Progress.h"

#include <gtest/gtest.h>

namespace vexmoor {
namespace {

using namespace test;

struct StatsTextTest : testing::Test {
    FakeClock clock{utc("2026-11-22 12:00:00")};
    InMemoryDefaults defaults;
    Ledger ledger{defaults, clock.clock()};
    Progress progress;

    QStringList shown() const {
        const StatsText text = StatsText::of(ledger, progress, clock.now);
        return {text.count,  text.countCaption,  text.bytes, text.bytesCaption,
                text.streak, text.streakCaption, text.today, text.achievements};
    }
    void feed(int count, std::int64_t bytesEach) {
        Sacrifice item;
        item.bytes = bytesEach;
        item.date = clock.now;
        ledger.record(std::vector<Sacrifice>(static_cast<std::size_t>(count), item));
    }
};

TEST_F(StatsTextTest, TellsOneFromMany) {
    feed(1, 512);
    progress.streak = 1;
    progress.unlocked = {"first"};
    EXPECT_EQ(shown(), QStringList({"1", "sacrifice", "512 bytes", "consumed", "1", "day streak",
                                    "Today: 1 item, 512 bytes", "1 of 19 achievements"}));
}

TEST_F(StatsTextTest, SetsThousandsApartAndTodayFromTheDaysBefore) {
    feed(1283, 30'000'000);
    clock.now = utc("2026-11-23 12:00:00");
    feed(1, 2'100'000);
    progress.streak = 1200;
    progress.unlocked = {"first", "streak7", "of a later version"};
    EXPECT_EQ(shown(),
              QStringList({"1,284", "sacrifices", "38.49 GB", "consumed", "1,200", "day streak",
                           "Today: 1 item, 2.1 MB", "2 of 19 achievements"}));
    clock.now = utc("2026-11-24 12:00:00");
    EXPECT_EQ(shown().at(6), "Today: 0 items, Zero KB");
}

} // namespace
} // namespace vexmoor
