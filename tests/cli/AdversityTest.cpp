#include "CliTest.h"

#include "base/FileDescriptor.h"
#include "support/BackgroundProgram.h"
#include "support/RawDatabase.h"

#include <fcntl.h>
#include <sqlite3.h>
#include <sys/file.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <map>

namespace vexmoor::test {
namespace {

using testing::ElementsAreArray;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

constexpr uid_t kNobody = 65534;

/// Commands under adverse conditions: signals, concurrent commands, unwritable or damaged stores.
class AdversityTest : public CliTest {
  protected:
    static std::vector<std::string> feeding(std::vector<std::string> names) {
        names.insert(names.begin(), {"feed", "--json"});
        return names;
    }

    [[nodiscard]] std::vector<std::string> recorded() const {
        std::vector<std::string> names;
        const Json history = json({"history", "--json"});
        for (const auto& item : history)
            names.push_back(item["name"]);
        std::ranges::sort(names);
        return names;
    }

    static void closeFolder(const Path& path) {
        std::filesystem::permissions(path, std::filesystem::perms::owner_read |
                                               std::filesystem::perms::owner_exec);
    }
};

TEST_F(AdversityTest, StopsBetweenTwoItemsWhenInterrupted) {
    const auto names = makeItems(10);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        const auto result = vexmoor(feeding(names)).runUntilCall(SYS_renameat2, 3, signal);
        if (!result)
            GTEST_SKIP() << "processes can't be traced here";
        EXPECT_EQ(result->status, 1);
        EXPECT_THAT(result->errors, HasSubstr("Left as it was: 7 items."));
        const auto document = Json::parse(result->output);
        EXPECT_EQ(document["done"].size(), 3U);
        EXPECT_EQ(document["untouched"].size(), 7U);
        EXPECT_EQ(document["untouched"][0], Json(m_files / "item-003"));
        EXPECT_THAT(binned(), ElementsAreArray({"item-000", "item-001", "item-002"}));
        EXPECT_THAT(namesIn(m_files), ElementsAreArray(names.begin() + 3, names.end()));

        const auto back = vexmoor({"put-back", "--json"}).runUntilCall(SYS_renameat2, 1, signal);
        ASSERT_TRUE(back);
        EXPECT_EQ(back->status, 1);
        EXPECT_THAT(binned(), testing::SizeIs(2));
        EXPECT_EQ(run({"put-back"}).status, 0);
        EXPECT_THAT(namesIn(m_files), ElementsAreArray(names));
    }
}

TEST_F(AdversityTest, RecordsWhatAKilledCommandCompleted) {
    const auto names = makeItems(10);
    if (!vexmoor(feeding(names)).runUntilCall(SYS_renameat2, 3, SIGKILL))
        GTEST_SKIP() << "processes can't be traced here";
    EXPECT_THAT(binned(), testing::SizeIs(3));
    const auto next = run({"history"});
    EXPECT_THAT(next.errors, HasSubstr("3 disposed of"));
    EXPECT_THAT(run({"history"}).errors, IsEmpty())
        << "an interrupted batch is recorded and reported once";
    EXPECT_THAT(recorded(), ElementsAreArray({"item-000", "item-001", "item-002"}));
    EXPECT_EQ(json({"stats", "--json"})["count"], 3);
    EXPECT_EQ(run({"put-back"}).status, 0);
    EXPECT_THAT(namesIn(m_files), ElementsAreArray(names));
}

TEST_F(AdversityTest, ChangesASettingAfterACommandWasKilled) {
    if (!vexmoor(feeding(makeItems(3))).runUntilCall(SYS_renameat2, 1, SIGKILL))
        GTEST_SKIP() << "processes can't be traced here";
    const auto result = run({"settings", "sound", "off"});
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(result.errors, HasSubstr("1 disposed of"));
}

TEST_F(AdversityTest, SerializesConcurrentCommands) {
    const auto names = makeItems(40);
    std::vector<Command::Running> running;
    for (auto name = names.begin(); name != names.end(); name += 10)
        running.push_back(vexmoor(feeding({name, name + 10})).start());
    for (auto& command : running) {
        const auto result = command.wait();
        EXPECT_EQ(result.status, 0) << result.errors;
        EXPECT_EQ(Json::parse(result.output)["done"].size(), 10U);
    }
    EXPECT_THAT(binned(), ElementsAreArray(names));
    EXPECT_THAT(recorded(), ElementsAreArray(names));
    EXPECT_EQ(json({"stats", "--json"})["count"], 40);
}

TEST_F(AdversityTest, CanBeInterruptedWhileWaiting) {
    make("a");
    ASSERT_EQ(run({"settings", "sound", "off"}).status, 0);
    const int lock = ::open((m_data / "vexmoor/lock").c_str(), O_RDWR | O_CLOEXEC);
    ASSERT_EQ(::flock(lock, LOCK_EX), 0);
    const auto result = vexmoor({"feed", "a"}).runUntilCall(SYS_clock_nanosleep, 1, SIGINT);
    ::close(lock);
    if (!result)
        GTEST_SKIP() << "processes can't be traced here";
    EXPECT_EQ(result->status, 3);
    EXPECT_THAT(result->errors, HasSubstr("Nothing was touched."));
    EXPECT_TRUE(isThere("a"));
}

TEST_F(AdversityTest, ReportsThatItWaitsForAnotherCommand) {
    make("a");
    ASSERT_EQ(run({"settings", "sound", "off"}).status, 0);
    FileDescriptor lock(::open((m_data / "vexmoor/lock").c_str(), O_RDWR | O_CLOEXEC));
    ASSERT_EQ(::flock(lock.get(), LOCK_EX), 0);
    auto running = vexmoor({"feed", "a"}).start();
    EXPECT_TRUE(eventually([&] { return !running.errors().empty(); }));
    EXPECT_EQ(running.errors(), "vexmoor: Waiting for another command to end.\n");
    EXPECT_TRUE(isThere("a"));
    lock.reset();
    EXPECT_EQ(running.wait().status, 0);
    EXPECT_FALSE(isThere("a"));
}

TEST_F(AdversityTest, PrintsOneDocumentWhenACommandIsRefused) {
    make("a");
    ASSERT_EQ(run({"settings", "sound", "on"}).status, 0);
    RawDatabase(m_data / "vexmoor/defaults.db").run("PRAGMA user_version = 99"); // a newer one
    for (std::vector<std::string> arguments : {std::vector<std::string>{"feed", "a"},
                                               {"feed", "--mode", "dissolve", "a"},
                                               {"put-back"},
                                               {"delete", "--yes", "a"},
                                               {"history"},
                                               {"stats"},
                                               {"settings"},
                                               {"settings", "sound", "off"}}) {
        arguments.emplace_back("--json");
        const auto result = run(arguments);
        EXPECT_EQ(result.status, 3) << arguments[0];
        const auto document = Json::parse(result.output, nullptr, false);
        ASSERT_TRUE(document.is_object()) << arguments[0] << ": " << result.output;
        const std::string sentence = document.value("error", "");
        EXPECT_FALSE(sentence.empty()) << arguments[0];
        EXPECT_THAT(result.errors, HasSubstr(sentence));
    }
    EXPECT_TRUE(isThere("a"));
}

TEST_F(AdversityTest, SetsADamagedDatabaseAsideAndReportsItOnce) {
    make("a");
    make("b");
    m_scratch.write("home/data/vexmoor/defaults.db", std::string(8192, 'x'));
    const auto first = run({"feed", "a"});
    EXPECT_EQ(first.status, 0) << first.errors;
    EXPECT_THAT(first.errors, HasSubstr("The database was damaged. It was set aside as "));
    EXPECT_EQ(contents(m_data / "vexmoor/defaults.db.corrupt-1"), std::string(8192, 'x'));
    EXPECT_THAT(run({"feed", "b"}).errors, Not(HasSubstr("damaged")));
    EXPECT_THAT(recorded(), ElementsAreArray({"a", "b"}));
}

TEST_F(AdversityTest, ChangesNothingIfItCannotKeepARecord) {
    make("a");
    ASSERT_EQ(run({"settings", "sound", "off"}).status, 0);
    const bool isRoot = ::geteuid() == 0;
    if (isRoot) { // root can write to any folder: run as the unprivileged owner of the files
        std::filesystem::permissions(m_scratch.path(), std::filesystem::perms(0755));
        std::filesystem::copy_file(m_program, m_scratch / "vexmoor");
        m_program = m_scratch / "vexmoor";
        for (const Path& path : {m_home, m_files, m_files / "a", m_data, m_data / "vexmoor"})
            ASSERT_EQ(::chown(path.c_str(), kNobody, kNobody), 0);
        for (const auto& name : namesIn(m_data / "vexmoor"))
            ASSERT_EQ(::chown((m_data / "vexmoor" / name).c_str(), kNobody, kNobody), 0);
    }
    closeFolder(m_data / "vexmoor");
    for (const auto& name : namesIn(m_data / "vexmoor"))
        if (!std::filesystem::is_directory(m_data / "vexmoor" / name))
            std::filesystem::permissions(m_data / "vexmoor" / name,
                                         std::filesystem::perms::owner_read);
    for (const auto& arguments : {std::vector<std::string>{"feed", "a"},
                                  {"feed", "--mode", "dissolve", "--yes", "a"},
                                  {"settings", "sound", "on"}}) {
        auto command = vexmoor(arguments);
        const auto result = (isRoot ? command.asUser(kNobody) : command).run();
        EXPECT_EQ(result.status, 3) << result.errors;
        EXPECT_THAT(result.errors, HasSubstr("Permission denied"));
        EXPECT_TRUE(isThere("a"));
    }
    auto reading = vexmoor({"settings", "sound"});
    EXPECT_EQ((isRoot ? reading.asUser(kNobody) : reading).run().output, "off\n");
    std::filesystem::permissions(m_data / "vexmoor", std::filesystem::perms::owner_all);
}

TEST_F(AdversityTest, LosesNothingIfAnotherProgramLocksTheDatabase) {
    make("a");
    ASSERT_EQ(run({"settings", "sound", "off"}).status, 0);
    sqlite3* database = nullptr;
    ASSERT_EQ(sqlite3_open((m_data / "vexmoor/defaults.db").c_str(), &database), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(database, "BEGIN EXCLUSIVE", nullptr, nullptr, nullptr), SQLITE_OK);
    const auto result = run({"feed", "a"});
    sqlite3_close(database);
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.errors, HasSubstr("in use by another program"));
    EXPECT_THAT(binned(), ElementsAreArray({"a"}));
    EXPECT_THAT(recorded(), ElementsAreArray({"a"})) << "from the journal";
    EXPECT_EQ(json({"stats", "--json"})["count"], 1);
    EXPECT_EQ(run({"put-back"}).status, 0);
    EXPECT_TRUE(isThere("a"));
}

TEST_F(AdversityTest, NeverMistakesAnotherFolderForADeletedOne) {
    const Path gone = m_files / "gone";
    std::filesystem::create_directory(gone);
    make("a");
    for (const char* const name : {"a", "./a", "../a"}) {
        std::filesystem::create_directory(gone);
        const auto result = vexmoor({"feed", name}).in(gone).removingItsFolder().run();
        EXPECT_EQ(result.status, 1) << name;
        EXPECT_THAT(result.errors, HasSubstr("No such file or directory"));
    }
    EXPECT_TRUE(isThere("a"));
    make("b");
    std::filesystem::create_directory(gone);
    const auto result = vexmoor({"feed", m_files / "b"}).in(gone).removingItsFolder().run();
    EXPECT_EQ(result.status, 0) << "an absolute path needs no working directory" << result.errors;
}

TEST_F(AdversityTest, ReportsAnItemThatHasLeftTheBin) {
    make("a");
    make("b");
    ASSERT_EQ(run({"feed", "a", "b"}).status, 0);
    std::filesystem::remove(m_data / "Trash/files/a");
    const auto result = run({"put-back", "a", "b"});
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.errors, HasSubstr("a is no longer in the Bin."));
    EXPECT_TRUE(isThere("b")) << "one failure does not stop the rest";
    EXPECT_THAT(run({"history"}).output, HasSubstr("No longer in the Bin"));
}

} // namespace
} // namespace vexmoor::test
