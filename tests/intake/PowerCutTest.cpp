#include "base/FileDescriptor.h"
#include "base/Path.h"
#include "platform/FileManager.h"
#include "support/Command.h"
#include "support/TemporaryDirectory.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <fcntl.h>
#include <sched.h>
#include <sys/ioctl.h>
#include <sys/mount.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <random>
#include <set>

namespace vexmoor::test {

namespace {

constexpr int kFiles = 700; ///< more than one group
constexpr int kRounds = 12;

/// Seed of the random moments; can be set by the environment variable POWER_CUT_SEED.
unsigned seed() {
    constexpr unsigned kUsual = 4711;
    const char* const wanted = std::getenv("POWER_CUT_SEED");
    return wanted == nullptr ? kUsual : static_cast<unsigned>(std::strtoul(wanted, nullptr, 10));
}

/// A file system on a loop device, visible only to this process and its children.
class Disk {
  public:
    explicit Disk(const std::string& kind, const Path& folder)
        : m_kind(kind), m_image(folder / "image"), m_top(folder / "disk") {
        constexpr std::int64_t kSize = std::int64_t{400} << 20; ///< sparse; the minimum for xfs
        std::filesystem::create_directory(m_top);
        std::ofstream(m_image).close();
        std::filesystem::resize_file(m_image, kSize);
    }
    ~Disk() { ::umount2(m_top.c_str(), MNT_DETACH); }
    Disk(const Disk&) = delete;
    Disk& operator=(const Disk&) = delete;

    /// Creates and mounts it. Returns the reason if that is impossible, otherwise an empty text.
    [[nodiscard]] std::string make() const {
        if (::geteuid() != 0)
            return "only root mounts file systems";
        if (::unshare(CLONE_NEWNS) != 0 ||
            ::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0)
            return "there is no private mount namespace to be had";
        const auto made =
            Command({"mkfs." + m_kind, "-q", m_kind == "ext4" ? "-F" : "-f", m_image.native()})
                .run();
        if (made.status != 0)
            return "mkfs." + m_kind + ": " + made.errors;
        return mount();
    }
    [[nodiscard]] std::string mount() const {
        const auto mounted =
            Command({"mount", "-t", m_kind, "-o", "loop", m_image.native(), m_top.native()}).run();
        return mounted.status == 0 ? "" : "mount: " + mounted.errors;
    }
    void unmount() const {
        const auto unmounted = Command({"umount", m_top.native()}).run();
        ASSERT_EQ(unmounted.status, 0) << unmounted.errors;
    }
    void cutPower() const {
        constexpr unsigned long kShutdown = _IOR('X', 125, std::uint32_t);
        std::uint32_t withoutFlush = 2;
        const FileDescriptor top(::open(m_top.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
        ASSERT_EQ(::ioctl(top.get(), kShutdown, &withoutFlush), 0);
    }
    void syncAll() const {
        const FileDescriptor top(::open(m_top.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
        ASSERT_EQ(::syncfs(top.get()), 0);
    }
    /// Syncs names and moves but not file contents, as file systems do after some seconds.
    void syncNames() const {
        const FileDescriptor file(
            ::open((m_top / "another").c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600));
        ASSERT_EQ(::fsync(file.get()), 0);
    }
    /// Uses up the free space.
    void fill() const {
        int number = 0;
        for (off_t size = off_t{256} << 20; size >= 1024; size /= 2)
            for (int error = 0; error == 0;) {
                const FileDescriptor file(
                    ::open((m_top / ("fill " + std::to_string(++number))).c_str(),
                           O_WRONLY | O_CREAT | O_CLOEXEC, 0600));
                error = file ? ::posix_fallocate(file.get(), 0, size) : ENOSPC;
            }
    }
    void makeRoom() const {
        for (int number = 1; std::filesystem::remove(m_top / ("fill " + std::to_string(number)));)
            ++number;
    }
    [[nodiscard]] const Path& top() const { return m_top; }

  private:
    std::string m_kind;
    Path m_image;
    Path m_top;
};

class PowerCutTest : public testing::TestWithParam<const char*> {
  protected:
    [[nodiscard]] Command vexmoor(std::vector<std::string> arguments) const {
        arguments.insert(arguments.begin(), VEXMOOR_PROGRAM);
        return Command(std::move(arguments))
            .in(disk.top() / "things")
            .withNothingElse()
            .with("HOME", disk.top());
    }
    [[nodiscard]] static std::string text(int number) { return "text " + std::to_string(number); }
    [[nodiscard]] Path thing(int number) const {
        return disk.top() / "things" / ("file " + std::to_string(number));
    }
    [[nodiscard]] Path bin(const char* part) const {
        return disk.top() / ".local/share/Trash" / part;
    }
    static std::set<std::string> list(const Path& folder) {
        std::set<std::string> result;
        std::error_code code;
        for (const auto& entry : std::filesystem::directory_iterator(folder, code))
            result.insert(entry.path().filename());
        return result;
    }

    void begin(bool isFirstStart) const {
        std::filesystem::create_directory(disk.top() / "things");
        for (int i = 0; i < kFiles; ++i)
            std::ofstream(thing(i)) << text(i);
        if (!isFirstStart) {
            std::ofstream(disk.top() / "things/warm") << "warm";
            EXPECT_EQ(vexmoor({"feed", "warm"}).run().status, 0);
        }
        disk.syncAll();
    }
    [[nodiscard]] static std::vector<std::string> feeding() {
        std::vector<std::string> words = {"feed", "--"};
        for (int i = 0; i < kFiles; ++i)
            words.push_back("file " + std::to_string(i));
        return words;
    }
    /// Runs the program and cuts the power after that call, or at the end if it makes fewer calls.
    void runAndCut(std::vector<std::string> arguments, const std::string& moment,
                   bool hasSyncedNames) const {
        const auto result = vexmoor(std::move(arguments))
                                .with("LD_PRELOAD", KILL_AFTER_LIBRARY)
                                .with("ASAN_OPTIONS", "verify_asan_link_order=0")
                                .with("KILL_AFTER", moment)
                                .with("KILL_CUTS", disk.top())
                                .run();
        if (result.signal != SIGKILL) {
            ASSERT_EQ(result.status, 0) << result.errors;
            if (hasSyncedNames)
                disk.syncNames();
            disk.cutPower();
        }
        disk.unmount();
        ASSERT_EQ(disk.mount(), "");
    }

    /// Expects each file at its path, or in the Bin with an info file, and counted.
    void check(int counted) const {
        const auto stats = vexmoor({"stats", "--json"}).run();
        ASSERT_EQ(stats.status, 0) << stats.errors;
        const auto binned = list(bin("files"));
        for (int i = 0; i < kFiles; ++i) {
            const Path name = thing(i).filename();
            ASSERT_NE(fileStatus(thing(i)).ok(), binned.contains(name)) << name;
            if (binned.contains(name)) {
                EXPECT_GT(std::filesystem::file_size(bin("info") / (name.native() + ".trashinfo")),
                          0U)
                    << name;
            }
        }
        const auto count = nlohmann::json::parse(stats.output)["count"].get<int>();
        EXPECT_GE(count, static_cast<int>(binned.size())) << stats.errors;
        EXPECT_GE(count, counted) << stats.errors;
    }
    void putAllBack() const {
        const auto result = vexmoor({"put-back", "--last", std::to_string(2 * kFiles)}).run();
        for (int i = 0; i < kFiles; ++i) {
            ASSERT_TRUE(fileStatus(thing(i)).ok()) << thing(i) << ": " << result.errors;
            ASSERT_EQ(contents(thing(i)), text(i));
        }
        EXPECT_EQ(list(bin("files")), std::set<std::string>());
    }

    TemporaryDirectory folder;
    Disk disk{GetParam(), folder.path()};
};

TEST_P(PowerCutTest, LosesNoFileAndKeepsAllRestorable) {
    std::mt19937 random(seed());
    for (int round = 0; round < kRounds && !HasFailure(); ++round) {
        if (const auto reason = disk.make(); !reason.empty())
            GTEST_SKIP() << "The power can't be cut: " << reason;
        const bool isFirstStart = random() % 4 == 0;
        const bool hasSyncedNames = random() % 4 != 0;
        const bool isCutLater = round % 3 == 0;
        const char* const calls[] = {"renameat2", "write", "fdatasync", "pwrite"};
        const std::string call = calls[random() % 4];
        const int most = call == "fdatasync" || call == "pwrite" ? 3 : kFiles;
        const std::string moment =
            isCutLater ? "renameat2 1000000"
                       : call + " " + std::to_string(1 + random() % static_cast<unsigned>(most));
        SCOPED_TRACE(std::string(GetParam()) + ", seed " + std::to_string(seed()) + ", round " +
                     std::to_string(round) + ": " + moment + (isFirstStart ? ", first start" : "") +
                     (hasSyncedNames ? ", synced" : ""));
        begin(isFirstStart);
        runAndCut(feeding(), moment, hasSyncedNames);
        check(0);
        disk.syncAll();
        if (list(bin("files")).empty()) { // the power cut reverted all moves
            ASSERT_EQ(vexmoor(feeding()).run().status, 0);
        }
        runAndCut({"put-back", "--last", std::to_string(2 * kFiles)}, moment, hasSyncedNames);
        check(0);
        putAllBack();
        disk.unmount();
    }
}

TEST_P(PowerCutTest, RepairsTheBinOfAnotherVolume) {
    if (const auto reason = disk.make(); !reason.empty())
        GTEST_SKIP() << "The power can't be cut: " << reason;
    const Path home = folder / "home";
    const auto run = [&](std::vector<std::string> arguments) {
        const auto result = vexmoor(std::move(arguments)).with("HOME", home).run();
        EXPECT_EQ(result.status, 0) << result.errors;
    };
    begin(true);
    run(feeding());
    disk.syncNames();
    disk.cutPower();
    disk.unmount();
    ASSERT_EQ(disk.mount(), "");
    const Path own = disk.top() / (".Trash-" + std::to_string(::geteuid()));
    const auto isEmpty = [](const auto& entry) { return entry.file_size() == 0; };
    const auto emptyInfos = [&] {
        const std::filesystem::directory_iterator infos(own / "info");
        return std::count_if(std::filesystem::begin(infos), std::filesystem::end(infos), isEmpty);
    };
    if (emptyInfos() == 0)
        GTEST_SKIP() << "The cut has emptied no info file";
    std::ofstream(disk.top() / "things/next") << "next";
    run({"feed", "next"});
    EXPECT_EQ(emptyInfos(), 0);
    run({"put-back", "--last", std::to_string(2 * kFiles)});
    for (int i = 0; i < kFiles; ++i)
        ASSERT_EQ(contents(thing(i)), text(i));
    disk.unmount();
}

TEST_P(PowerCutTest, DeletesDissolvesAndPutsBackOnAFullDisk) {
    if (std::string(GetParam()) == "xfs")
        GTEST_SKIP() << "A full xfs has no room for the names of what is moved";
    if (const auto reason = disk.make(); !reason.empty())
        GTEST_SKIP() << "No disk can be filled: " << reason;
    begin(false);
    ASSERT_EQ(vexmoor(feeding()).run().status, 0);
    std::filesystem::create_directories(disk.top() / "things/folder/in it");
    const std::vector<std::vector<std::string>> orders = {
        {"put-back", "file 8"},
        {"delete", "--yes", "file 7", "warm"},
        {"put-back"},
        {"feed", "--mode", "dissolve", "--yes", "folder"},
    };
    for (const auto& order : orders) {
        disk.fill();
        const auto result = vexmoor(order).run();
        EXPECT_EQ(result.status, 0) << order[0] << ": " << result.errors;
        disk.makeRoom();
        ASSERT_EQ(vexmoor({"settings", "sound", "off"}).run().status,
                  0); // starts the program again
    }
    for (int i = 0; i < kFiles; ++i)
        EXPECT_EQ(fileStatus(thing(i)).ok(), i != 7) << i;
    disk.unmount();
}

INSTANTIATE_TEST_SUITE_P(Disks, PowerCutTest, testing::Values("ext4", "xfs"),
                         [](const auto& disk) { return std::string(disk.param); });

} // namespace

} // namespace vexmoor::test
