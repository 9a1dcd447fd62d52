#include "BinFixture.h"

#include "disposal/TrashInfo.h"
#include "support/Faults.h"

namespace vexmoor::test {

namespace {

/// Another program acts before each system call in turn while an item is moved into or out of the
/// Bin. Its data must survive.
class BinSwapTest : public BinTest, public testing::WithParamInterface<Faults::NoReplace> {
  protected:
    const Path original = path() / "a.txt";

    /// Returns the item in files/ with that content.
    [[nodiscard]] std::optional<Path> inBin(const std::string& bytes) const {
        for (const auto& entry : std::filesystem::directory_iterator(binPath() / "files"))
            if (read(entry.path()) == bytes)
                return entry.path();
        return std::nullopt;
    }
    /// Saves by rename, as editors do.
    void save(const Path& file, const std::string& bytes) const {
        write("new", bytes);
        std::filesystem::rename(path() / "new", file);
    }
    /// Puts another item under the name in the Bin, as a program does after emptying it.
    void useBinAgain(const Path& place) const {
        std::filesystem::remove(place);
        std::filesystem::remove(infoOf(place));
        std::ofstream(infoOf(place)) << TrashInfo{path() / "theirs", {}}.toText();
        write(place.lexically_relative(path()), "theirs");
    }

    /// Runs the action with the other program before the first call, then before the second and so
    /// on, and calls `check` after each run.
    void atEachCall(const std::function<Path()>& prepare,
                    const std::function<void(const Path&)>& other,
                    const std::function<void(const Path&)>& action,
                    const std::function<void(const Path&)>& check) {
        int call = 0;
        for (std::optional<std::string> preceded = "first"; preceded; ++call) {
            ASSERT_LT(call, 500);
            const Path place = prepare();
            {
                const Faults faults(
                    call, [&] { other(place); }, GetParam());
                action(place);
            }
            preceded = Faults::failed();
            SCOPED_TRACE("before call " + std::to_string(call) + ", " + preceded.value_or("none"));
            if (preceded)
                check(place);
            if (HasFailure())
                return;
            std::filesystem::remove_all(binPath());
            std::filesystem::remove_all(original);
        }
        EXPECT_GT(call, 10);
    }
};

TEST_P(BinSwapTest, NoForeignItemLeavesTheBin) {
    for (const bool erasing : {false, true})
        atEachCall(
            [&] {
                write("a.txt", "ours");
                const Path place = bin(original);
                age(infoOf(place));
                return place;
            },
            [&](const Path& place) { useBinAgain(place); },
            [&](const Path& place) {
                if (erasing)
                    (void)erase(place, original);
                else
                    (void)putBack(place, original);
            },
            [&](const Path&) {
                const auto theirs = inBin("theirs");
                ASSERT_TRUE(theirs);
                const auto info = TrashInfo::fromText(read(infoOf(*theirs)));
                EXPECT_TRUE(info && info->path == path() / "theirs") << *theirs;
                EXPECT_NE(read(original), "theirs");
            });
}

TEST_P(BinSwapTest, NoFailingCallStrandsAnItem) {
    for (const int error : {EIO, ENOSPC, EACCES})
        for (const bool erasing : {false, true}) {
            std::optional<std::string> failed = "first";
            for (int call = 0; failed; ++call) {
                ASSERT_LT(call, 500);
                write("a.txt", "ours");
                const Path place = bin(original);
                const BinRecord record{original, {}, factsOf(place)};
                bool isDone = false;
                {
                    const Faults faults(call, error, GetParam());
                    isDone = erasing ? erase(place, record).ok() : putBack(place, record).ok();
                }
                failed = Faults::failed();
                SCOPED_TRACE("call " + std::to_string(call) + ", " + failed.value_or("none"));
                (void)Disposer(directories(), nullptr).returnLeaving(place);
                EXPECT_TRUE(std::filesystem::is_empty(binPath() / "vexmoor-leaving/files"));
                EXPECT_EQ(read(original), isDone && !erasing ? "ours" : "");
                if (!isDone && fileStatus(place).ok()) {
                    const auto back = putBack(place, record);
                    EXPECT_TRUE(back.ok()) << describe(back.error());
                } else {
                    EXPECT_TRUE(isDone || erasing) << "neither in the Bin nor at its original path";
                }
                if (HasFailure())
                    return;
                std::filesystem::remove_all(binPath());
                std::filesystem::remove_all(original);
            }
        }
}

TEST_P(BinSwapTest, AFileSavedDuringFeedingIsKeptOrRecorded) {
    std::optional<BinnedItem> binned;
    atEachCall(
        [&] {
            write("a.txt", "old");
            return Path();
        },
        [&](const Path&) { save(original, "saved in between"); },
        [&](const Path&) {
            const auto disposed = dispose(original);
            binned = disposed ? disposed->binned : std::nullopt;
        },
        [&](const Path&) {
            if (read(original) == "saved in between")
                return;
            ASSERT_TRUE(binned);
            EXPECT_EQ(read(binned->place), "saved in between");
            EXPECT_EQ(binned->facts, factsOf(binned->place));
            EXPECT_TRUE(fileStatus(infoOf(binned->place)).ok());
        });
}

INSTANTIATE_TEST_SUITE_P(Renames, BinSwapTest,
                         testing::Values(Faults::NoReplace::supported, Faults::NoReplace::missing));

} // namespace

} // namespace vexmoor::test
