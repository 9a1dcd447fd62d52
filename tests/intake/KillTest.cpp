#include "base/Path.h"
#include "disposal/RecordJson.h"
#include "platform/FileManager.h"
#include "support/Command.h"
#include "support/TemporaryDirectory.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <csignal>
#include <random>
#include <set>

namespace vexmoor::test {

namespace {

constexpr int kFiles = 2000;
constexpr int kKills = 200;
constexpr std::size_t kHistory = 40;
constexpr int kRoundRuns = 40; ///< enough to finish a round
constexpr unsigned kSeed = 20240331;

/// The system calls that move and record each item, and those that store the batch.
constexpr const char* kItemCalls[] = {"openat", "write", "renameat2", "unlinkat"};
constexpr const char* kBatchCalls[] = {"pwrite", "pwrite64", "fdatasync", "close"};
constexpr int kBatchCallsMade = 5;

/// Kills the built program repeatedly.
class KillTest : public testing::Test {
  protected:
    KillTest() {
        for (int i = 0; i < kFiles; ++i) {
            const std::string name = "file " + std::to_string(i);
            home.write(Path("things") / name, name);
            names.insert(name);
        }
    }

    [[nodiscard]] Command vexmoor(std::vector<std::string> arguments) const {
        arguments.insert(arguments.begin(), VEXMOOR_PROGRAM);
        return Command(std::move(arguments))
            .in(things())
            .withNothingElse()
            .with("HOME", home.path());
    }
    [[nodiscard]] nlohmann::json answer(std::vector<std::string> arguments) const {
        arguments.emplace_back("--json");
        const auto result = vexmoor(std::move(arguments)).run();
        EXPECT_EQ(result.status, 0) << result.errors;
        return nlohmann::json::parse(result.output, nullptr, false);
    }

    [[nodiscard]] Path things() const { return home / "things"; }
    [[nodiscard]] Path bin(const char* part) const { return home / ".local/share/Trash" / part; }
    static std::set<std::string> list(const Path& folder) {
        std::set<std::string> result;
        std::error_code code;
        for (const auto& entry : std::filesystem::directory_iterator(folder, code))
            result.insert(entry.path().filename());
        return result;
    }

    /// Feeds the items in their folder, or puts back those in the Bin, and kills the program after
    /// that number of calls. Returns false if it finished before.
    [[nodiscard]] bool runAndKill(bool feeding, const std::string& moment) const {
        std::vector<std::string> arguments = {"put-back", "--last", std::to_string(kFiles)};
        if (feeding) {
            arguments = {"feed", "--"};
            for (const auto& name : list(things()))
                arguments.push_back(name);
        }
        const auto result = vexmoor(std::move(arguments))
                                .with("LD_PRELOAD", KILL_AFTER_LIBRARY)
                                .with("ASAN_OPTIONS", "verify_asan_link_order=0")
                                .with("KILL_AFTER", moment)
                                .run();
        return result.signal == SIGKILL;
    }

    /// Moves everything out of the Bin by hand, including items that are too old to be put back.
    void takeOut() {
        for (const auto& name : list(bin("files"))) {
            std::filesystem::rename(bin("files") / name, things() / name);
            std::filesystem::remove(bin("info") / (name + ".trashinfo"));
        }
        lastBinned.clear();
    }

    /// Expects disk and records to agree after the next start.
    void check() {
        const auto stats = answer({"stats"}); // this start recovers
        const auto atPlace = list(things());
        const auto binned = list(bin("files"));
        const auto infos = list(bin("info"));
        for (const auto& name : names)
            EXPECT_NE(atPlace.contains(name), binned.contains(name)) << name;
        EXPECT_EQ(atPlace.size() + binned.size(), names.size());
        std::set<std::string> expectedInfos;
        for (const auto& name : binned)
            expectedInfos.insert(name + ".trashinfo");
        EXPECT_EQ(infos, expectedInfos);
        std::size_t lastFed = 0;
        for (const auto& name : binned)
            lastFed += lastBinned.contains(name) ? 0 : 1;
        lastBinned = binned;
        everBinned += static_cast<std::int64_t>(lastFed);
        EXPECT_EQ(stats["count"], everBinned) << "each item counts once per time it was fed";
        std::size_t inBin = 0;
        for (const auto& record : answer({"history"}))
            inBin += !record.contains("restored") &&
                             binned.contains(Path(record["trashed"].get<std::string>()).filename())
                         ? 1
                         : 0;
        EXPECT_GE(inBin, std::min<std::size_t>(kHistory, lastFed)) << "newest not in history";
    }

    TemporaryDirectory home;
    std::set<std::string> names;
    std::set<std::string> lastBinned;
    std::int64_t everBinned = 0;
};

TEST_F(KillTest, LosesNothingAtTwoHundredRandomMoments) {
    std::mt19937 random(kSeed);
    bool feeding = true;
    int kills = 0;
    for (int run = 0; kills < kKills && !HasFailure(); ++run) {
        ASSERT_LT(run, 3 * kKills) << "no run was killed";
        const auto left = feeding ? list(things()).size() : list(bin("files")).size();
        const bool isOfItem = random() % 5 > 0;
        const char* const* const calls = isOfItem ? kItemCalls : kBatchCalls;
        const std::string call = calls[random() % 4];
        const auto most = isOfItem ? left + 1 : kBatchCallsMade;
        const std::string moment = call + " " + std::to_string(1 + random() % most);
        SCOPED_TRACE((feeding ? "feeding, run " : "putting back, run ") + std::to_string(run) +
                     ", " + moment);
        kills += runAndKill(feeding, moment) ? 1 : 0;
        check();
        if (!feeding && run % kRoundRuns == 0)
            takeOut();
        if ((feeding ? list(things()) : list(bin("files"))).empty())
            feeding = !feeding;
    }
    (void)vexmoor({"put-back", "--last", std::to_string(kFiles)}).run();
    takeOut();
    for (const auto& name : names)
        EXPECT_EQ(contents(things() / name), name);
    EXPECT_TRUE(list(bin("info")).empty());
}

} // namespace

} // namespace vexmoor::test
