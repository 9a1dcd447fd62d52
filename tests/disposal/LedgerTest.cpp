#include "disposal/Ledger.h"

#include "disposal/RecordJson.h"
#include "support/FakeClock.h"
#include "support/InMemoryDefaults.h"
#include "support/ScopedTimeZone.h"

#include <gmock/gmock.h>

#include <limits>

namespace vexmoor::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Data = UserDefaults::Data;

class LedgerTest : public testing::Test {
  protected:
    Ledger ledger() { return {m_defaults, m_clock.clock()}; }

    /// Returns items named "<first>", "<first + 1>"... of 10 bytes each.
    [[nodiscard]] std::vector<Sacrifice> batch(int first, int count) const {
        std::vector<Sacrifice> items;
        for (int i = first; i < first + count; ++i)
            items.push_back(item(std::to_string(i), m_clock.now, 10));
        return items;
    }

    [[nodiscard]] static Sacrifice item(std::string name, Date date, std::int64_t bytes) {
        Sacrifice record;
        record.id = Uuid::generate();
        record.name = std::move(name);
        record.bytes = bytes;
        record.date = date;
        return record;
    }

    static std::vector<std::string> names(const Ledger& ledger) {
        std::vector<std::string> result;
        for (const auto& record : ledger.recent.get())
            result.push_back(record.name);
        return result;
    }

    /// Returns "<from>", "<from - 1>"... down to "<to>".
    static std::vector<std::string> numbersDown(int from, int to) {
        std::vector<std::string> result;
        for (int i = from; i >= to; --i)
            result.push_back(std::to_string(i));
        return result;
    }

    ScopedTimeZone m_zone{"Europe/Berlin"};
    FakeClock m_clock{utc("2024-04-10 10:00:00")};
    InMemoryDefaults m_defaults;
};

TEST_F(LedgerTest, KeepsTheFortyNewestRecordsNewestFirst) {
    auto first = ledger();
    first.record(batch(0, 50));
    EXPECT_EQ(first.count.get(), 50);
    EXPECT_EQ(first.bytes.get(), 500);
    EXPECT_EQ(names(first), numbersDown(49, 10));

    first.record(batch(50, 30));
    auto expected = numbersDown(79, 50);
    const auto rest = numbersDown(49, 40);
    expected.insert(expected.end(), rest.begin(), rest.end());
    EXPECT_EQ(names(first), expected);

    const auto afterRestart = ledger();
    EXPECT_EQ(afterRestart.recent.get(), first.recent.get());
    EXPECT_EQ(afterRestart.days.get(), first.days.get());
    EXPECT_EQ(afterRestart.count.get(), 80);
    EXPECT_EQ(afterRestart.bytes.get(), 800);
}

TEST_F(LedgerTest, StoresABatchUnderFourKeysInOneTransaction) {
    auto subject = ledger();
    const auto items = batch(1, 1);
    EXPECT_TRUE(m_defaults.transaction([&] { subject.record(items); }));
    EXPECT_EQ(m_defaults.commits(), 1);
    const std::map<Date, DayTally> days = {{utc("2024-04-09 22:00:00"), {1, 10}}};
    EXPECT_EQ(m_defaults.stored(), (InMemoryDefaults::Values{{"ledger.count", std::int64_t{1}},
                                                             {"ledger.bytes", std::int64_t{10}},
                                                             {"ledger.recent", Data{encode(items)}},
                                                             {"ledger.days", Data{encode(days)}}}));

    subject.record({});
    subject.mark({}, {}, {});
    EXPECT_EQ(m_defaults.commits(), 1);
}

TEST_F(LedgerTest, CountsEachItemOnItsLocalDay) {
    auto subject = ledger();
    subject.record({item("last second", utc("2024-03-30 22:59:59"), 1),
                    item("midnight", utc("2024-03-30 23:00:00"), 2),
                    item("23 hours later", utc("2024-03-31 22:00:00"), 4),
                    item("clock set back", utc("2024-03-30 22:00:00"), 8)});
    EXPECT_THAT(subject.days.get(),
                ElementsAre(std::pair(utc("2024-03-29 23:00:00"), DayTally{2, 9}),
                            std::pair(utc("2024-03-30 23:00:00"), DayTally{1, 2}),
                            std::pair(utc("2024-03-31 22:00:00"), DayTally{1, 4})));
}

TEST_F(LedgerTest, DropsDaysMoreThanSixtyBeforeTheNewestItem) {
    auto subject = ledger();
    subject.record({item("61 before", utc("2024-02-08 22:59:59"), 1),
                    item("60 before", utc("2024-02-09 23:00:00"), 1),
                    item("newest", utc("2024-04-10 10:00:00"), 1),
                    item("older than it", utc("2024-03-01 10:00:00"), 1)});
    EXPECT_EQ(subject.days.get().size(), 3U);
    EXPECT_EQ(subject.days.get().begin()->first, utc("2024-02-09 23:00:00"));
    m_clock.now = utc("2030-01-01 00:00:00"); // the clock is irrelevant
    subject.record({item("again", utc("2024-04-10 11:00:00"), 1)});
    EXPECT_EQ(subject.days.get().size(), 3U);
    EXPECT_EQ(subject.count.get(), 5);
}

TEST_F(LedgerTest, ReturnsTheWeekOldestFirst) {
    auto subject = ledger();
    std::vector<Ledger::DayOfWeek> empty;
    for (const char* start : {"2024-03-27 23", "2024-03-28 23", "2024-03-29 23", "2024-03-30 23",
                              "2024-03-31 22", "2024-04-01 22", "2024-04-02 22"})
        empty.push_back({utc(std::string(start) + ":00:00"), {}});
    EXPECT_EQ(subject.week(utc("2024-04-03 21:59:59")), empty);

    subject.record({item("in", utc("2024-03-31 12:00:00"), 5),
                    item("before the week", utc("2024-03-27 22:59:59"), 5)});
    auto expected = empty;
    expected[3].tally = {1, 5};
    EXPECT_EQ(subject.week(utc("2024-04-03 12:00:00")), expected);
}

TEST_F(LedgerTest, MarksRecentRecordsInOneChange) {
    auto subject = ledger();
    const auto items = batch(0, 4);
    subject.record(items);
    int changes = -1; // subscribing calls it once
    const auto subscription = subject.recent.subscribe([&](const auto&) { ++changes; });
    m_clock.now = utc("2024-04-11 10:00:00");
    const int commitsBefore = m_defaults.commits();
    subject.mark({items[0].id, items[3].id}, {items[1].id, Uuid::generate()},
                 {items[2].id, items[3].id});

    auto expected = std::vector(items.rbegin(), items.rend());
    expected[0].restored = expected[0].deleted = m_clock.now;
    expected[1].deleted = m_clock.now;
    expected[2].lost = true;
    expected[3].restored = m_clock.now;
    EXPECT_EQ(subject.recent.get(), expected);
    EXPECT_EQ(ledger().recent.get(), expected);
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(m_defaults.commits(), commitsBefore + 1);
    EXPECT_EQ(subject.count.get(), 4);
}

TEST_F(LedgerTest, StartsEmptyForUnreadableValues) {
    const auto records = batch(0, 2);
    const std::map<Date, DayTally> days = {{utc("2024-04-09 22:00:00"), {2, 20}}};
    const std::map<Date, DayTally> stored = {{utc("2024-01-09 23:00:00"), {7, 70}}};
    const struct {
        const char* what;
        std::optional<UserDefaults::Value> recent;
        std::optional<UserDefaults::Value> days;
        std::size_t expectedRecent;
        std::map<Date, DayTally> expectedDays;
    } cases[] = {
        {"nothing", {}, {}, 0, {}},
        {"days missing: counted from the records", Data{encode(records)}, {}, 2, days},
        {"days of another kind", Data{encode(records)}, std::int64_t{1}, 2, days},
        {"days unreadable", Data{encode(records)}, Data{"[1]"}, 2, {}},
        {"days stored", Data{encode(records)}, Data{encode(stored)}, 2, stored},
        {"records unreadable", Data{"[{}]"}, Data{encode(stored)}, 0, stored},
    };
    for (const auto& test : cases) {
        SCOPED_TRACE(test.what);
        InMemoryDefaults defaults({{"ledger.count", std::int64_t{9}}, {"ledger.bytes", "text"}});
        defaults.assign("ledger.recent", test.recent);
        defaults.assign("ledger.days", test.days);
        const int commits = defaults.commits();
        const Ledger subject(defaults, m_clock.clock());
        EXPECT_EQ(subject.count.get(), 9);
        EXPECT_EQ(subject.bytes.get(), 0);
        EXPECT_EQ(subject.recent.get().size(), test.expectedRecent);
        EXPECT_EQ(subject.days.get(), test.expectedDays);
        EXPECT_EQ(defaults.commits(), commits) << "loading writes nothing";
    }
}

TEST_F(LedgerTest, TotalsSaturate) {
    constexpr auto kMost = std::numeric_limits<std::int64_t>::max();
    auto subject = ledger();
    for (const std::int64_t bytes : {kMost, std::int64_t{1}, kMost}) {
        subject.record({item("one", m_clock.now, bytes)});
        EXPECT_EQ(subject.bytes.get(), kMost);
        EXPECT_EQ(subject.days.get().begin()->second.bytes, kMost);
    }
    EXPECT_EQ(subject.count.get(), 3);
}

} // namespace
} // namespace vexmoor::test
