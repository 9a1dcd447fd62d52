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
constexpr int kRefused = 3;
constexpr unsigned kSeed = 20240331;

/// The built program, killed again and again.
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
            .with("HOME", home.path())
            .without("XDG_DATA_HOME");
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

    /// Feeds what is at its place, or puts back what is in the Bin, and is killed on the way.
    void runAndKill(bool feeding, std::chrono::microseconds after) const {
        std::vector<std::string> arguments = {"put-back", "--last", std::to_string(kFiles)};
        if (feeding) {
            arguments = {"feed", "--"};
            for (const auto& name : list(things()))
                arguments.push_back(name);
        }
        const auto result = vexmoor(std::move(arguments)).runAndSignal(after, SIGKILL);
        const bool isTooOld = !feeding && result.status == kRefused;
        EXPECT_TRUE(result.signal == SIGKILL || result.status == 0 || isTooOld)
            << result.status << result.errors;
        if (isTooOld)
            takeOut();
    }

    /// What was fed more batches ago than there are journals is put back by hand.
    void takeOut() const {
        for (const auto& name : list(bin("files"))) {
            std::filesystem::rename(bin("files") / name, things() / name);
            std::filesystem::remove(bin("info") / (name + ".trashinfo"));
        }
    }

    /// What the disk and the records must agree on after the next start.
    void check() {
        const auto stats = answer({"stats"}); // the restart that recovers
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
        EXPECT_EQ(stats["count"], everBinned) << "each item counts once for each time it was fed";
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
    int midway = 0;
    for (int kill = 0; kill < kKills && !HasFailure(); ++kill) {
        const auto left = feeding ? list(things()).size() : list(bin("files")).size();
        // About 60 microseconds an item, so that a round takes a few kills.
        const auto most = static_cast<unsigned>(20000 + left * 60);
        SCOPED_TRACE((feeding ? "feeding, kill " : "putting back, kill ") + std::to_string(kill));
        runAndKill(feeding, std::chrono::microseconds(random() % most));
        const auto leftNow = feeding ? list(things()).size() : list(bin("files")).size();
        midway += leftNow > 0 && leftNow < left ? 1 : 0;
        check();
        if ((feeding ? list(things()) : list(bin("files"))).empty())
            feeding = !feeding;
    }
    EXPECT_GT(midway, kKills / 4) << "the kills missed the work";
    (void)vexmoor({"put-back", "--last", std::to_string(kFiles)}).run();
    takeOut();
    for (const auto& name : names)
        EXPECT_EQ(contents(things() / name), name);
    EXPECT_TRUE(list(bin("info")).empty());
}

} // namespace

} // namespace vexmoor::test
