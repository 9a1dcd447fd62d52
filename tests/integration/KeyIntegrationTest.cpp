#include "integration/KeyIntegration.h"

#include "support/BackgroundProgram.h"
#include "support/TemporaryDirectory.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sys/stat.h>

#include <functional>
#include <map>

namespace vexmoor {
namespace {

namespace fs = std::filesystem;
using Status = AcceleratorStatus;
using test::contents;

/// A home folder with fake file managers that only report their version.
class KeyIntegrationTest : public testing::Test {
  protected:
    KeyIntegrationTest() {
        m_context.directories = {m_home, m_home / "data", ::geteuid(), m_home / "config"};
        m_context.program = "/usr/bin/vexmoor";
        m_context.searchPath = m_scratch / "bin";
        m_context.configDirs = m_scratch / "system";
        fs::create_directories(m_home / "data");
    }

    void installManager(const std::string& name, const std::string& script = "exit 0") const {
        const auto file = m_scratch.write(Path("bin") / name, "#!/bin/sh\n" + script + "\n");
        ::chmod(file.c_str(), 0755);
    }

    void write(const std::string& name, std::string_view bytes) const {
        m_scratch.write(Path("home") / name, bytes);
    }

    [[nodiscard]] KeyIntegration keys() const { return KeyIntegration(m_context); }

    /// Returns all files with their content and all folders, except the record of created paths.
    [[nodiscard]] std::map<std::string, std::string> tree() const {
        std::map<std::string, std::string> all;
        for (const auto& entry : fs::recursive_directory_iterator(m_home))
            all[fs::relative(entry.path(), m_home)] =
                entry.is_regular_file() ? contents(entry.path()) : "";
        return all;
    }

    static std::map<std::string_view, Status> statuses(const std::vector<KeyState>& states) {
        std::map<std::string_view, Status> result;
        for (const auto& state : states) {
            result[state.manager->id] = state.status;
            EXPECT_FALSE(state.error) << state.manager->id << " " << state.error->message();
        }
        return result;
    }

    test::TemporaryDirectory m_scratch;
    Path m_home = m_scratch / "home";
    IntegrationContext m_context;
};

TEST_F(KeyIntegrationTest, InstallsInEachFileManagerAndRemovesCompletely) {
    for (const char* const name : {"thunar", "nautilus", "caja", "pcmanfm-qt"})
        installManager(name);
    installManager("nemo", "echo nemo 6.4.0");
    installManager("dolphin", "test \"$QT_QPA_PLATFORM\" = offscreen && echo dolphin 26.04.0");
    write("config/Thunar/accels.scm", "; mine");
    const auto before = tree();
    const std::map<std::string_view, Status> expected{
        {"thunar", Status::installed}, {"nautilus", Status::installed},
        {"nemo", Status::installed},   {"dolphin", Status::installed},
        {"caja", Status::unsupported}, {"pcmanfm-qt", Status::unsupported}};
    EXPECT_EQ(statuses(keys().install()), expected);
    const auto installed = tree();
    EXPECT_EQ(statuses(keys().install()), expected);
    EXPECT_EQ(tree(), installed) << "a second time changes nothing";
    EXPECT_TRUE(installed.contains("config/Thunar/uca.xml")) << "the key uses the menu's action";

    EXPECT_EQ(statuses(keys().remove())["thunar"], Status::notInstalled);
    EXPECT_TRUE(tree().contains("config/Thunar/uca.xml")) << "the menu entry remains";
    CreatedPaths created(m_context.directories);
    for (const auto& manager : kFileManagers)
        EXPECT_TRUE(ManagerIntegration(manager, m_context).removeMenu(created));
    EXPECT_EQ(tree(), before);
}

TEST_F(KeyIntegrationTest, KeepsPreexistingEmptyFilesAndFolders) {
    installManager("nautilus");
    write("config/nautilus/scripts-accels", "");
    fs::create_directories(m_home / "data/nautilus/scripts");
    const auto before = tree();
    EXPECT_EQ(statuses(keys().install())["nautilus"], Status::installed);
    EXPECT_EQ(statuses(keys().remove())["nautilus"], Status::notInstalled);
    CreatedPaths created(m_context.directories);
    EXPECT_TRUE(ManagerIntegration(*fileManagerWithId("nautilus"), m_context).removeMenu(created));
    EXPECT_EQ(tree(), before);
}

TEST_F(KeyIntegrationTest, KeepsTheUsersKeys) {
    installManager("thunar");
    installManager("nautilus");
    write("config/nautilus/scripts-accels", "F4 Feed to Vexmoor");
    write("config/Thunar/accels.scm", "(gtk_accel_path \"x\" \"<Ctrl>BackSpace\")");
    const auto before = tree();
    const std::map<std::string_view, Status> expected{{"thunar", Status::taken},
                                                      {"nautilus", Status::otherKey}};
    EXPECT_EQ(statuses(keys().install()), expected);
    EXPECT_EQ(statuses(keys().remove()), expected);
    EXPECT_EQ(tree(), before);
}

TEST_F(KeyIntegrationTest, AddsOneNemoMenuEntryInEveryVersion) {
    const Path action = m_home / "data/nemo/actions/vexmoor-feed.nemo_action";
    const Path script = m_home / "data/nemo/scripts/Feed to Vexmoor";
    const auto entries = [&] { return std::pair(fs::exists(action), fs::exists(script)); };
    installManager("nemo", "echo nemo 5.6.4");
    CreatedPaths created(m_context.directories);
    ASSERT_TRUE(ManagerIntegration(*fileManagerWithId("nemo"), m_context).installMenu(created));
    EXPECT_EQ(entries(), std::pair(true, false));
    EXPECT_EQ(statuses(keys().install())["nemo"], Status::installed);
    EXPECT_EQ(entries(), std::pair(false, true));
    EXPECT_THAT(contents(m_home / ".gnome2/accels/nemo"), testing::HasSubstr("ScriptsGroup"));
    EXPECT_EQ(statuses(keys().remove())["nemo"], Status::notInstalled);
    EXPECT_EQ(entries(), std::pair(true, false));
    EXPECT_FALSE(fs::exists(m_home / ".gnome2"));

    EXPECT_EQ(statuses(keys().install())["nemo"], Status::installed);
    installManager("nemo", "echo nemo 6.6");
    EXPECT_EQ(statuses(keys().status())["nemo"], Status::notInstalled);
    const auto updated = keys().install();
    EXPECT_EQ(updated.front().status, Status::installed);
    EXPECT_FALSE(updated.front().validity.needsRestart);
    EXPECT_EQ(entries(), std::pair(true, false));
    EXPECT_FALSE(fs::exists(m_home / ".gnome2"));
}

TEST_F(KeyIntegrationTest, DoesNotSupportDolphinWithoutMenuAccelerators) {
    installManager("dolphin", "echo dolphin 25.12.3");
    EXPECT_EQ(statuses(keys().install())["dolphin"], Status::unsupported);
    EXPECT_EQ(tree().size(), 1U);
}

TEST_F(KeyIntegrationTest, ReportsHostileFilesAndKeepsThem) {
    const Path file = m_home / "config/nautilus/scripts-accels";
    const struct {
        const char* what;
        std::function<void()> make;
        std::errc code;
    } cases[] = {
        {"a folder", [&] { fs::create_directory(file); }, std::errc::invalid_argument},
        {"a fifo", [&] { ::mkfifo(file.c_str(), 0600); }, std::errc::invalid_argument},
        {"binary", [&] { write("config/nautilus/scripts-accels", "\xFF\xFF"); },
         std::errc::bad_message},
        {"endless", [&] { fs::create_symlink("/dev/zero", file); }, std::errc::invalid_argument},
        {"a link to nothing", [&] { fs::create_symlink("gone", file); },
         std::errc::no_such_file_or_directory},
        {"huge",
         [&] {
             write("config/nautilus/scripts-accels", "a b\n");
             fs::resize_file(file, 5 << 20);
         },
         std::errc::file_too_large},
    };
    installManager("nautilus");
    for (const auto& [what, make, code] : cases) {
        fs::create_directories(file.parent_path());
        fs::remove_all(file);
        make();
        const auto before = fs::symlink_status(file).type();
        for (const auto& states : {keys().install(), keys().remove(), keys().status()}) {
            ASSERT_TRUE(states.front().error) << what;
            EXPECT_EQ(states.front().error->code, code) << what;
            EXPECT_NE(states.front().status, Status::installed);
        }
        EXPECT_EQ(fs::symlink_status(file).type(), before) << what;
    }
}

TEST_F(KeyIntegrationTest, FailsIfAFileManagerDoesNotReportItsVersion) {
    installManager("nemo", "exit 1");
    const auto states = keys().install();
    ASSERT_TRUE(states.front().error);
    EXPECT_EQ(states.front().error->operation, "run");
    EXPECT_FALSE(keys().remove().front().status == Status::installed);
}

TEST_F(KeyIntegrationTest, ReportsFileManagersThatNeedARestart) {
    fs::create_directories(m_scratch / "bin");
    fs::copy_file("/bin/sleep", m_scratch / "bin/nautilus");
    const Path file = m_home / "config/nautilus/scripts-accels";
    const auto state = [&] { return keys().status().front(); };
    ASSERT_EQ(statuses(keys().install())["nautilus"], Status::installed);
    const test::BackgroundProgram nautilus({m_scratch / "bin/nautilus", "1000"});
    fs::last_write_time(file, fs::file_time_type::clock::now() + std::chrono::hours(1));
    ASSERT_TRUE(test::eventually([&] { return state().waitsForRestart; }));
    fs::last_write_time(file, fs::file_time_type::clock::now() - std::chrono::hours(1));
    EXPECT_FALSE(state().waitsForRestart);
    const auto since = *state().validity.since;
    EXPECT_TRUE(state().validity.isEffectiveFor(since + std::chrono::seconds(1)));
    EXPECT_FALSE(state().validity.isEffectiveFor(since));
}

} // namespace
} // namespace vexmoor
