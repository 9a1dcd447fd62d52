#include "progression/Progression.h"

#include "disposal/Ledger.h"
#include "support/FakeClock.h"
#include "support/InMemoryDefaults.h"
#include "support/ScopedTimeZone.h"

#include <gmock/gmock.h>

#include <limits>
#include <optional>

namespace vexmoor::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Data = UserDefaults::Data;
using Notification = NotificationPort::Notification;
using Offerings = std::vector<Progression::Offering>;

/// A notification centre that answers when the test requests it.
class FakeNotifications : public NotificationPort {
  public:
    void requestAuthorization(std::function<void(bool)> completion) override {
        m_completions.push_back(std::move(completion));
    }
    void post(const Notification& notification) override { posted.push_back(notification); }

    /// Answers all requests and returns their number.
    int answer(bool granted) {
        const auto completions = std::exchange(m_completions, {});
        for (const auto& completion : completions)
            completion(granted);
        return static_cast<int>(completions.size());
    }

    std::vector<Notification> posted;

  private:
    std::vector<std::function<void(bool)>> m_completions;
};

template <typename Range>
std::vector<std::string> idsOf(const Range& range) {
    std::vector<std::string> ids;
    ids.reserve(std::size(range));
    for (const auto& element : range)
        ids.emplace_back(element.id);
    return ids;
}

class ProgressionTest : public testing::Test {
  protected:
    /// Simulates a program start with empty memory.
    Progression& start(const Ledger* ledger = nullptr) {
        m_subject.reset();
        m_skins.clear();
        return m_subject.emplace(m_defaults, ledger, m_clock.clock(), m_notifications,
                                 [this](const Skin& skin) { m_skins.emplace_back(skin.id); });
    }

    void store(const Progress& progress) {
        m_defaults.assign("progression", Data{encode(progress)});
    }

    [[nodiscard]] std::optional<Progress> stored() const {
        const auto found = m_defaults.stored().find("progression");
        return found == m_defaults.stored().end()
                   ? std::nullopt
                   : decodeProgress(std::get<Data>(found->second).bytes);
    }

    ScopedTimeZone m_zone{"Europe/Berlin"};
    FakeClock m_clock{utc("2024-03-29 12:00:00")};
    InMemoryDefaults m_defaults;
    FakeNotifications m_notifications;
    std::vector<std::string> m_skins; ///< in the order of selection
    std::optional<Progression> m_subject;
};

const Offerings kOne = {{"/a", 1, false}};

TEST_F(ProgressionTest, CountsAndStoresABatch) {
    auto& subject = start();
    int notifications = -1; // subscribing calls it once
    const auto subscription = subject.subscribe([&](const Progress&) { ++notifications; });
    const Offerings batch = {
        {"/a/one.JPG", 10, false}, {"/a/two.jpg", 30, false},  {"/a/.bashrc", 20, false},
        {"/a/Some.App/", 5, true}, {"/a/none", 0, false},      {"/a/folder", 1, true},
        {"/a/b.\xFF", 1, false},   {"/a/ФОТО.ФАЙЛ", 1, false},
    };
    subject.record(batch, DisposeMode::bin);
    Progress expected;
    expected.items = 8;
    expected.bytes = 68;
    expected.biggest = 30;
    expected.folders = 2;
    expected.streak = expected.bestStreak = 1;
    expected.lastDay = utc("2024-03-28 23:00:00");
    expected.extensions = {"app", "jpg", "файл", "\xEF\xBF\xBD"};
    expected.unlocked = {"first"};
    EXPECT_EQ(subject.progress(), expected);
    EXPECT_EQ(stored(), expected);
    EXPECT_EQ(m_defaults.commits(), 1);
    EXPECT_EQ(notifications, 1);

    subject.record(Offerings{{"/a/c", 7, false}, {"/a/d", 8, true}}, DisposeMode::dissolve);
    EXPECT_EQ(subject.progress().dissolved, 2);
    EXPECT_EQ(subject.progress().biggest, 30);
    EXPECT_EQ(start().progress().items, 10);
}

TEST_F(ProgressionTest, UsesTheCallersTransaction) {
    auto& subject = start();
    m_defaults.failWith(Error::fromErrno(ENOSPC, "write the database"));
    EXPECT_FALSE(m_defaults.transaction([&] {
        m_defaults.assign("other", true);
        subject.record(kOne, DisposeMode::bin);
    }));
    EXPECT_THAT(m_defaults.stored(), IsEmpty());
    EXPECT_THAT(m_defaults.failures(), IsEmpty());
    EXPECT_EQ(subject.progress().items, 1);
}

TEST_F(ProgressionTest, IgnoresAnEmptyBatch) {
    auto& subject = start();
    EXPECT_THAT(subject.record({}, DisposeMode::dissolve), IsEmpty());
    EXPECT_EQ(subject.progress(), Progress());
    EXPECT_EQ(m_defaults.commits(), 0);
}

TEST_F(ProgressionTest, CountsConsecutiveLocalDays) {
    constexpr const char* kBerlin = "Europe/Berlin";
    const struct {
        const char* zone;
        const char* moment; // in UTC, like the day
        std::int64_t streak;
        std::int64_t best;
        const char* day;
    } steps[] = {
        {kBerlin, "2024-03-29 12:00:00", 1, 1, "2024-03-28 23:00:00"},
        {kBerlin, "2024-03-29 22:59:59", 1, 1, "2024-03-28 23:00:00"}, // still the same day
        {kBerlin, "2024-03-29 23:00:00", 2, 2, "2024-03-29 23:00:00"}, // one second later
        {kBerlin, "2024-03-31 21:59:59", 3, 3, "2024-03-30 23:00:00"}, // end of 23 hours
        {kBerlin, "2024-03-31 22:00:00", 4, 4, "2024-03-31 22:00:00"},
        {kBerlin, "2024-04-02 22:00:00", 1, 4, "2024-04-02 22:00:00"}, // one empty day
        {kBerlin, "2024-04-04 08:00:00", 2, 4, "2024-04-03 22:00:00"},
        {kBerlin, "2024-04-02 08:00:00", 1, 4, "2024-04-01 22:00:00"}, // clock set back
        {kBerlin, "2024-04-03 08:00:00", 2, 4, "2024-04-02 22:00:00"},
        // Berlin's midnight is the evening of the second in New York.
        {"America/New_York", "2024-04-03 16:00:00", 3, 4, "2024-04-03 04:00:00"},
        // In Tokyo it is already the fourth.
        {"Asia/Tokyo", "2024-04-03 17:00:00", 4, 4, "2024-04-03 15:00:00"},
        {"Asia/Tokyo", "2024-04-04 15:00:00", 5, 5, "2024-04-04 15:00:00"},
    };
    for (const auto& step : steps) {
        SCOPED_TRACE(step.moment);
        const ScopedTimeZone zone(step.zone);
        m_clock.now = utc(step.moment);
        auto& subject = start();
        subject.record(kOne, DisposeMode::bin);
        EXPECT_EQ(subject.progress().streak, step.streak);
        EXPECT_EQ(subject.progress().bestStreak, step.best);
        EXPECT_EQ(subject.progress().lastDay, utc(step.day));
    }
}

TEST_F(ProgressionTest, KeepsTheStreakWhenTheLastDayIsBeyondTheCalendar) {
    Progress record;
    record.streak = record.bestStreak = 5;
    record.lastDay = Date{1e300};
    store(record);
    auto& subject = start();
    subject.record(kOne, DisposeMode::bin);
    EXPECT_EQ(subject.progress().streak, 5);
    EXPECT_EQ(subject.progress().lastDay, utc("2024-03-28 23:00:00"));
}

TEST_F(ProgressionTest, StartsFromTheLedgersTotalsWithoutAReadableRecord) {
    InMemoryDefaults ledgerDefaults(
        {{"ledger.count", std::int64_t{12}}, {"ledger.bytes", std::int64_t{3400}}});
    const Ledger ledger(ledgerDefaults, m_clock.clock());
    Progress seeded;
    seeded.items = 12;
    seeded.bytes = 3400;
    const struct {
        const char* what;
        std::optional<UserDefaults::Value> value;
    } cases[] = {
        {"none", {}},
        {"not JSON", Data{"{"}},
        {"keys are missing", Data{R"({"items":1})"}},
        {"of another kind", encode(Progress())},
    };
    for (const auto& test : cases) {
        SCOPED_TRACE(test.what);
        m_defaults.assign("progression", test.value);
        const int commits = m_defaults.commits();
        EXPECT_EQ(start(&ledger).progress(), seeded);
        EXPECT_EQ(start().progress(), Progress());
        EXPECT_EQ(m_defaults.commits(), commits) << "only the first change writes";
    }
    EXPECT_EQ(idsOf(start(&ledger).record(kOne, DisposeMode::bin)),
              (std::vector<std::string>{"first", "items10"}));
    EXPECT_EQ(start(&ledger).progress().items, 13) << "the record is used from now on";
}

TEST_F(ProgressionTest, UnlocksEverythingReachedOnceInCatalogueOrder) {
    constexpr std::int64_t kGibibyte = 1073741824;
    auto& subject = start();
    Offerings batch(9, {"/a", 0, true});
    batch.push_back({"/b", kGibibyte - 1, false});
    EXPECT_EQ(idsOf(subject.record(batch, DisposeMode::dissolve)),
              (std::vector<std::string>{"first", "items10", "dissolve1"}));
    const Offerings big = {{"/c", kGibibyte, true}};
    EXPECT_EQ(idsOf(subject.record(big, DisposeMode::bin)),
              (std::vector<std::string>{"gb1", "big1gb", "folders10"}));
    EXPECT_THAT(subject.record(big, DisposeMode::bin), IsEmpty());
    EXPECT_EQ(stored()->unlocked, (std::vector<std::string>{"first", "items10", "dissolve1", "gb1",
                                                            "big1gb", "folders10"}));
}

TEST_F(ProgressionTest, UnlocksAchievementsThatAnOlderRecordReached) {
    Progress record;
    record.items = 500;
    record.streak = 1;
    record.bestStreak = 30;
    for (int i = 0; i < 24; ++i)
        record.extensions.insert("x" + std::to_string(i));
    record.unlocked = {"items100", "retired"};
    store(record);
    EXPECT_EQ(idsOf(start().record(Offerings{{"/a.New", 1, false}}, DisposeMode::bin)),
              (std::vector<std::string>{"first", "items10", "streak7", "streak30", "omnivore"}));
}

TEST_F(ProgressionTest, AnnouncesAchievementsWithPermission) {
    auto& subject = start();
    const std::vector<Achievement> earned = {Achievement::all()[0], Achievement::all()[7]};
    subject.notify(earned);
    EXPECT_THAT(m_notifications.posted, IsEmpty());
    EXPECT_EQ(m_notifications.answer(true), 1);
    EXPECT_THAT(
        m_notifications.posted,
        ElementsAre(
            Notification{"achievement.first", "Achievement: First Offering",
                         "Everyone starts somewhere. Usually with a screenshot."},
            Notification{"achievement.tb1", "Achievement: Terabyte Tomb",
                         "A terabyte went in. Nothing came out. Unlocked the Void cauldron."}));

    m_notifications.posted.clear();
    subject.notify(earned);
    EXPECT_EQ(m_notifications.answer(false), 1);
    subject.notify({});
    EXPECT_EQ(m_notifications.answer(true), 1);
    EXPECT_THAT(m_notifications.posted, IsEmpty());
}

TEST_F(ProgressionTest, CanBeDestroyedBeforePermissionIsGranted) {
    start().notify({Achievement::all()[0]});
    m_subject.reset();
    m_notifications.answer(true);
    EXPECT_EQ(m_notifications.posted.size(), 1U);
}

TEST_F(ProgressionTest, OffersOnlyUnlockedSkins) {
    Progress record;
    record.unlocked = {"items10k", "first", "streak30", "items10"};
    store(record);
    auto& subject = start();
    EXPECT_EQ(idsOf(subject.unlockedSkins()),
              (std::vector<std::string>{"iron", "copper", "frost", "gold"}));
    const int commits = m_defaults.commits();
    subject.select(Skin::lava());
    EXPECT_EQ(m_defaults.commits(), commits);
    EXPECT_EQ(subject.progress().skin, "iron");
    subject.select(Skin::frost());
    EXPECT_EQ(m_defaults.commits(), commits + 1);
    EXPECT_EQ(stored()->skin, "frost");
    EXPECT_THAT(m_skins, ElementsAre("iron", "frost"));
    start();
    EXPECT_THAT(m_skins, ElementsAre("frost"));
}

TEST_F(ProgressionTest, ReplacesAnUnknownSelectedSkin) {
    for (const char* skin : {"plaid", "Gold", ""}) {
        Progress record;
        record.items = 7;
        record.skin = skin;
        store(record);
        start();
        EXPECT_THAT(m_skins, ElementsAre("iron"));
        record.skin = "iron";
        EXPECT_EQ(stored(), record);
    }
}

TEST_F(ProgressionTest, UnlockAllRaisesValuesToTheFloors) {
    Progress record;
    record.items = 20000;
    record.folders = 999;
    record.streak = 3;
    record.extensions = {"jpg"};
    record.unlocked = {"tb1"};
    store(record);
    auto& subject = start();
    const int commits = m_defaults.commits();
    subject.unlockAll();
    EXPECT_EQ(m_defaults.commits(), commits + 1);
    auto expected = record;
    expected.bytes = 1099511627776;
    expected.biggest = 53687091200;
    expected.folders = 1000;
    expected.dissolved = 100;
    expected.bestStreak = 365;
    for (int i = 0; i <= 24; ++i)
        expected.extensions.insert("ext" + std::to_string(i));
    for (const auto& achievement : Achievement::all())
        if (achievement.id != "tb1")
            expected.unlocked.emplace_back(achievement.id);
    EXPECT_EQ(stored(), expected);
    EXPECT_EQ(subject.unlockedSkins().size(), Skin::all().size());
    EXPECT_THAT(subject.record(kOne, DisposeMode::bin), IsEmpty());
}

TEST_F(ProgressionTest, UnlockAllAddsExtensionsBelowTwentyFive) {
    const struct {
        int known;
        std::size_t after;
    } cases[] = {{24, 49}, {25, 25}};
    for (const auto& test : cases) {
        Progress record;
        for (int i = 0; i < test.known; ++i)
            record.extensions.insert("x" + std::to_string(i));
        store(record);
        start().unlockAll();
        EXPECT_EQ(stored()->extensions.size(), test.after);
    }
}

TEST_F(ProgressionTest, ResetIgnoresTheLedger) {
    InMemoryDefaults ledgerDefaults({{"ledger.count", std::int64_t{12}}});
    const Ledger ledger(ledgerDefaults, m_clock.clock());
    auto& subject = start(&ledger);
    subject.unlockAll();
    subject.select(Skin::gold());
    const int commits = m_defaults.commits();
    subject.reset();
    EXPECT_EQ(m_defaults.commits(), commits + 1);
    EXPECT_EQ(stored(), Progress());
    EXPECT_THAT(m_skins, ElementsAre("iron", "gold", "iron"));
    EXPECT_EQ(start(&ledger).progress(), Progress());
}

TEST_F(ProgressionTest, TotalsSaturate) {
    constexpr auto kMost = std::numeric_limits<std::int64_t>::max();
    for (const auto total :
         {&Progress::items, &Progress::bytes, &Progress::folders, &Progress::dissolved}) {
        Progress progress;
        progress.*total = kMost;
        store(progress);
        auto& subject = start();
        subject.record(Offerings{{"/a", 1, true}}, DisposeMode::dissolve);
        EXPECT_EQ(subject.progress().*total, kMost);
    }
}

} // namespace
} // namespace vexmoor::test
