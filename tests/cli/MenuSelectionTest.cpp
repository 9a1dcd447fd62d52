#include "CliTest.h"

#include "base/FileDescriptor.h"
#include "base/Path.h"
#include "platform/Processes.h"
#include "support/BackgroundProgram.h"
#include "support/PrivateBus.h"

#include <systemd/sd-bus.h>

#include <sys/inotify.h>

#include <algorithm>
#include <atomic>
#include <set>
#include <thread>

namespace vexmoor::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

/// Answers on the bus like Dolphin with one window.
class FakeDolphin {
  public:
    FakeDolphin(const std::string& address, pid_t process, std::set<std::string> open)
        : m_open(std::move(open)) {
        sd_bus_new(&m_bus);
        sd_bus_set_address(m_bus, address.c_str());
        sd_bus_set_bus_client(m_bus, 1);
        sd_bus_start(m_bus);
        sd_bus_add_object_vtable(m_bus, nullptr, "/dolphin/Dolphin_1", "org.kde.dolphin.MainWindow",
                                 kMethods, this);
        EXPECT_GE(
            sd_bus_request_name(m_bus, ("org.kde.dolphin-" + std::to_string(process)).c_str(), 0),
            0);
        m_thread = std::thread([this] {
            while (!m_stop) {
                while (sd_bus_process(m_bus, nullptr) > 0) {
                }
                sd_bus_wait(m_bus, 10'000);
            }
        });
    }
    ~FakeDolphin() {
        m_stop = true;
        m_thread.join();
        sd_bus_flush_close_unref(m_bus);
    }
    FakeDolphin(const FakeDolphin&) = delete;
    FakeDolphin& operator=(const FakeDolphin&) = delete;

  private:
    static int isUrlOpen(sd_bus_message* call, void* self, sd_bus_error*) {
        const char* url = nullptr;
        sd_bus_message_read(call, "s", &url);
        const auto& open = static_cast<FakeDolphin*>(self)->m_open;
        return sd_bus_reply_method_return(call, "b", open.contains(url) ? 1 : 0);
    }

    static constexpr sd_bus_vtable kMethods[] = {
        SD_BUS_VTABLE_START(0),
        SD_BUS_METHOD("isUrlOpen", "s", "b", &FakeDolphin::isUrlOpen, SD_BUS_VTABLE_UNPRIVILEGED),
        SD_BUS_VTABLE_END};

    std::set<std::string> m_open;
    sd_bus* m_bus = nullptr;
    std::atomic<bool> m_stop = false;
    std::thread m_thread;
};

class MenuSelectionTest : public CliTest {
  protected:
    MenuSelectionTest() {
        make("folder/inside");
        make("other/inside");
    }

    /// Runs the program as a child of the named file manager, which starts it when a file "go"
    /// exists.
    [[nodiscard]] Command::Running callFrom(const std::string& manager,
                                            const std::string& item) const {
        const Path program = m_scratch / manager;
        if (!std::filesystem::exists(program))
            std::filesystem::copy_file("/bin/dash", program);
        return this
            ->program(
                {program, "-c",
                 "until [ -e \"$1\" ]; do :; done; \"$2\" feed --from-menu -- \"$3\"; exit $?",
                 "sh", m_scratch / "go", m_program, item})
            .with("DBUS_SESSION_BUS_ADDRESS", m_bus.address())
            .start();
    }

    PrivateBus m_bus;
};

TEST_F(MenuSelectionTest, NoPathMeansNoSelection) {
    for (const auto& arguments :
         {std::vector<std::string>{"feed", "--from-menu"}, {"feed", "--from-menu", "--"}}) {
        const auto result = run(arguments);
        EXPECT_EQ(result.status, 0);
        EXPECT_EQ(result.output + result.errors, "");
    }
    EXPECT_EQ(run({"feed", "--"}).status, 2);
    EXPECT_EQ(run({"feed", "--from-menu", ""}).status, 2) << "an unset variable";
}

TEST_F(MenuSelectionTest, TheWorkingDirectoryIsDisplayedAndNotSelected) {
    std::filesystem::create_directory_symlink(m_files / "folder", m_home / "by-link");
    for (const auto& path : {m_files / "folder", m_files / "folder/", m_home / "by-link"}) {
        const auto result =
            vexmoor({"feed", "--from-menu", "--", path}).in(m_files / "folder").run();
        EXPECT_EQ(result.status, 0);
        EXPECT_EQ(result.output + result.errors, "") << path;
    }
    EXPECT_THAT(binned(), IsEmpty());

    std::filesystem::create_directory_symlink(".", m_files / "folder/here");
    const auto link = vexmoor({"feed", "--from-menu", "--", m_files / "folder/here"})
                          .in(m_files / "folder")
                          .run();
    EXPECT_EQ(link.status, 0);
    EXPECT_THAT(binned(), ElementsAre("here")) << "a link to the folder, selected inside it";
    EXPECT_EQ(run({"feed", "--from-menu", "--", m_files / "folder"}).status, 0);
    EXPECT_THAT(binned(), ElementsAre("folder", "here")) << "a folder, selected in its parent";
}

TEST_F(MenuSelectionTest, AsksDolphinForItsDisplayedFolder) {
    const std::string odd = "odd #%+ ";
    make(odd + "/inside");
    const struct {
        std::string item;
        std::set<std::string> open;
        std::vector<std::string> binned;
    } cases[] = {
        {m_files / "folder", {m_files / "folder"}, {}},
        {m_files / odd, {"file://" + (m_files / "odd%20%23%25+%20").native()}, {}},
        {m_files / "folder/inside", {m_files / "folder"}, {"inside"}},
        {m_files / "other", {m_files / "folder"}, {"inside", "other"}},
    };
    for (const auto& [item, open, expected] : cases) {
        std::filesystem::remove(m_scratch / "go");
        auto dolphin = callFrom("dolphin", item);
        const FakeDolphin fake(m_bus.address(), dolphin.process(), open);
        m_scratch.write("go", "");
        const auto result = dolphin.wait();
        EXPECT_EQ(result.status, 0) << item << result.errors;
        EXPECT_EQ(binned(), expected);
    }
}

TEST_F(MenuSelectionTest, FeedsNothingIfDolphinDoesNotAnswer) {
    m_scratch.write("go", "");
    auto dolphin = callFrom("dolphin", m_files / "folder");
    const auto result = dolphin.wait();
    EXPECT_EQ(result.status, 3);
    EXPECT_THAT(result.errors, HasSubstr("Nothing was touched."));
    EXPECT_TRUE(isThere("folder"));
    EXPECT_EQ(callFrom("nautilus", m_files / "folder").wait().status, 0);
    EXPECT_THAT(binned(), ElementsAre("folder")) << "other file managers are not asked";
}

TEST_F(MenuSelectionTest, AFolderWatchedByPcmanfmQtIsDisplayed) {
    const FileDescriptor watch(::inotify_init1(0)); // inherited by the file manager
    ASSERT_GE(::inotify_add_watch(watch.get(), (m_files / "folder").c_str(), IN_CREATE), 0);
    std::filesystem::copy_file("/bin/sleep", m_scratch / "pcmanfm-qt");
    const BackgroundProgram manager({m_scratch / "pcmanfm-qt", "1000"}, {.keepOpen = watch.get()});
    constexpr std::string_view kName = "pcmanfm-qt";
    ASSERT_TRUE(eventually([&] {
        return std::ranges::any_of(processesOf({&kName, 1}), [&](const auto& process) {
            return watchesFolder(process.id, m_files / "folder");
        });
    }));
    const auto stays = [&] {
        const auto result = run({"feed", "--from-menu", "--", m_files / "folder"});
        return result.status == 0 && result.output.empty() && isThere("folder");
    };
    EXPECT_TRUE(stays());
    EXPECT_EQ(run({"feed", "--from-menu", "--", m_files / "other"}).status, 0);
    EXPECT_THAT(binned(), ElementsAre("other"));
}

} // namespace
} // namespace vexmoor::test
