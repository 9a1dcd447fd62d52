#include "IntakeFixture.h"

#include "support/Faults.h"

#include <gmock/gmock.h>

#include <cerrno>
#include <limits>

namespace vexmoor::test {

namespace {

/// Makes each system call fail in turn while a batch is fed and put back. Disk and ledger must
/// agree, at the latest after the next start.
class FaultTest : public IntakeTest,
                  public testing::WithParamInterface<std::pair<int, Faults::NoReplace>> {
  protected:
    [[nodiscard]] Path binPart(const char* part) const {
        return directories().dataHome / "Trash" / part;
    }
    static std::size_t entries(const Path& folder) {
        std::error_code code;
        return static_cast<std::size_t>(
            std::distance(std::filesystem::directory_iterator(folder, code), {}));
    }

    /// Expects every item complete, either at its path or in the Bin, and in the ledger
    /// accordingly.
    void checkAgreement(const std::vector<Path>& items) {
        start(); // records what could not be recorded before
        std::map<Path, const Sacrifice*> binned;
        for (const auto& record : recent())
            if (record.canRestore() && exists(*record.trashed))
                binned[*record.original] = &record;
        for (const auto& item : items) {
            const bool isHome = exists(item);
            EXPECT_NE(isHome, binned.contains(item)) << item;
            const Path place = isHome                  ? item
                               : binned.contains(item) ? Path(*binned[item]->trashed)
                                                       : Path();
            if (place.empty())
                continue;
            EXPECT_EQ(contents(item.filename() == "folder" ? place / "inside" : place),
                      item.filename() == "folder" ? "x" : item.filename().native());
        }
        EXPECT_EQ(entries(binPart("files")), binned.size());
        for (const auto& [original, record] : binned)
            EXPECT_TRUE(
                exists(binPart("info") / (record->trashed->filename().native() + ".trashinfo")))
                << original;
        EXPECT_EQ(program->progression.progress().items, program->ledger.count.get());
    }
};

TEST_P(FaultTest, LosesNothingWhicheverCallFails) {
    int call = 0;
    for (std::optional<std::string> failed = "first"; failed; ++call) {
        ASSERT_LT(call, 2000);
        auto items = make({"a", "b"});
        home.write("folder/inside", "x");
        items.push_back(home / "folder");
        {
            const Faults faults(call, GetParam().first, GetParam().second);
            feed(items);
            program->intake.restore(recent());
            settle();
        }
        failed = Faults::failed();
        SCOPED_TRACE("call " + std::to_string(call) + ", " + failed.value_or("none"));
        checkAgreement(items);
        if (HasFailure())
            return;
        std::filesystem::remove_all(directories().dataHome / "Trash");
    }
    EXPECT_GT(call, 30);
}

constexpr auto kSupported = Faults::NoReplace::supported;

TEST_F(FaultTest, SyncsTheIntentsOfAGroupOnce) {
    constexpr int kItems = 2000;
    const auto syncsOf = [](const std::function<void()>& batch) {
        const int before = Faults::syncs();
        batch();
        return Faults::syncs() - before;
    };
    const auto one = make({"one"});
    const auto many = make(kItems);
    EXPECT_EQ(syncsOf([&] { feed(one); }), 1);
    const auto putBackLast = [&] {
        program->intake.restore(program->binnedItems.lastBatch());
        settle();
    };
    EXPECT_EQ(syncsOf(putBackLast), 1);
    constexpr int kSlowMachine = 40; // groups are also limited in time
    EXPECT_LE(syncsOf([&] { feed(many); }), kSlowMachine);
    EXPECT_LE(syncsOf(putBackLast), kSlowMachine);
    EXPECT_TRUE(exists(many.back()));
}

TEST_F(FaultTest, SaturatesInvalidSizes) {
    constexpr auto kMost = std::numeric_limits<std::int64_t>::max();
    for (const std::uint64_t blocks : {~std::uint64_t{0}, std::uint64_t{1} << 54}) {
        const Faults::Blocks nonsense(blocks);
        EXPECT_EQ(feed(make({"a", "b"})).done.size(), 2U);
        home.write("folder/inside", "x");
        EXPECT_EQ(feed({home / "folder"}).done.size(), 1U);
        start();
        EXPECT_EQ(program->ledger.bytes.get(), kMost);
        program->intake.restore(program->binnedItems.all());
        settle();
        EXPECT_TRUE(exists(home / "a") && exists(home / "folder/inside"));
    }
    EXPECT_EQ(program->ledger.count.get(), 6);
    EXPECT_THAT(around.reports, testing::IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Errors, FaultTest,
                         testing::Values(std::pair(EIO, kSupported), std::pair(ENOSPC, kSupported),
                                         std::pair(EACCES, kSupported),
                                         std::pair(EINVAL, kSupported),
                                         std::pair(EIO, Faults::NoReplace::missing)));

} // namespace

} // namespace vexmoor::test
