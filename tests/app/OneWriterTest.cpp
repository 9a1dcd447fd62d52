#include "app/ApplicationService.h"

#include "support/Command.h"
#include "support/MainLoop.h"
#include "support/PrivateBus.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

#include <csignal>
#include <fstream>

namespace vexmoor::test {
namespace {

using testing::Contains;
using testing::Each;
using testing::HasSubstr;
using testing::SizeIs;

/// Both built programs in a scratch home, with real files and a real bus.
class OneWriterTest : public testing::Test {
  protected:
    OneWriterTest() {
        std::filesystem::create_directories(home() / "run");
        std::filesystem::permissions(home() / "run", std::filesystem::perms::owner_all);
    }
    ~OneWriterTest() override {
        if (takesCommands()) // started by the bus, so no other object ends it
            kill(static_cast<pid_t>(bus().interface()->servicePid(ApplicationService::kName)),
                 SIGKILL);
        QDBusConnection::disconnectFromBus("test");
    }

    [[nodiscard]] const Path& home() const { return m_bus.folder(); }

    [[nodiscard]] Command program(std::vector<std::string> words) const {
        Command command(std::move(words));
        command.in(home()).withNothingElse();
        for (const auto& [name, value] :
             std::map<std::string, std::string>{{"HOME", home()},
                                                {"XDG_DATA_HOME", home() / "data"},
                                                {"XDG_CONFIG_HOME", home() / "config"},
                                                {"XDG_CACHE_HOME", home() / "cache"},
                                                {"XDG_RUNTIME_DIR", home() / "run"},
                                                {"DBUS_SESSION_BUS_ADDRESS", m_bus.address()},
                                                {"QT_QPA_PLATFORM", "offscreen"},
                                                {"LANG", "C.UTF-8"}})
            command.with(name, value);
        return command;
    }
    [[nodiscard]] Command vexmoor(std::vector<std::string> arguments) const {
        arguments.insert(arguments.begin(), VEXMOOR_PROGRAM);
        return program(std::move(arguments));
    }
    [[nodiscard]] Command::Running startDesktop() const {
        return program({VEXMOOR_DESKTOP, "--background"}).start();
    }

    /// Starts that many commands at once, each with its own item.
    void feed(int count) {
        for (int i = 0; i < count; ++i) {
            const auto name = "item " + std::to_string(m_feeds.size());
            m_files.push_back(write(name));
            m_feeds.push_back(vexmoor({"feed", name}).start());
        }
    }
    [[nodiscard]] Path write(const std::string& name) const {
        const Path file = home() / name;
        std::ofstream(file) << name;
        return file;
    }

    [[nodiscard]] QDBusConnection bus() const {
        return QDBusConnection::connectToBus(QString::fromStdString(m_bus.address()), "test");
    }
    /// True if the desktop program runs and holds the lock; it may exit at any time.
    [[nodiscard]] bool takesCommands() const {
        auto stop = QDBusMessage::createMethodCall(
            ApplicationService::kName, ApplicationService::kPath, "org.vexmoor.Commands1", "Stop");
        stop.setAutoStartService(false);
        return bus().call(stop).type() == QDBusMessage::ReplyMessage;
    }

    /// Returns how often each name is in the history.
    [[nodiscard]] std::map<std::string, int> history() const {
        std::map<std::string, int> counts;
        const auto result = vexmoor({"history", "--json"}).run();
        for (const auto& item : nlohmann::json::parse(result.output))
            ++counts[item["name"].get<std::string>()];
        return counts;
    }

    PrivateBus m_bus;
    std::vector<Path> m_files;
    std::vector<Command::Running> m_feeds;
};

TEST_F(OneWriterTest, WorksInAnyStartOrder) {
    feed(10);
    auto desktop = startDesktop();
    feed(10);
    ASSERT_TRUE(eventually([&] { return takesCommands(); }));
    feed(16);
    for (std::size_t i = 0; i < m_feeds.size(); ++i) {
        const auto result = m_feeds[i].wait();
        EXPECT_EQ(result.status, 0) << result.errors;
        EXPECT_THAT(result.output, HasSubstr("To the Bin: " + m_files[i].filename().native()));
        EXPECT_FALSE(std::filesystem::exists(m_files[i]));
    }
    const auto recorded = history();
    EXPECT_THAT(recorded, SizeIs(m_feeds.size()));
    EXPECT_THAT(recorded, Each(testing::Pair(testing::_, 1)));
    desktop.signal(SIGTERM);
    EXPECT_EQ(desktop.wait().status, 0);
    EXPECT_EQ(history(), recorded);
    EXPECT_EQ(vexmoor({"put-back", "--last", "36"}).run().status, 0);
    for (const auto& file : m_files)
        EXPECT_TRUE(std::filesystem::exists(file)) << file;
}

TEST_F(OneWriterTest, LosesNothingIfTheDesktopQuitsDuringCommands) {
    auto desktop = startDesktop();
    ASSERT_TRUE(eventually([&] { return takesCommands(); }));
    feed(12);
    desktop.signal(SIGTERM);
    feed(12);
    EXPECT_EQ(desktop.wait().status, 0);
    std::vector<Command::Result> results;
    for (auto& command : m_feeds)
        results.push_back(command.wait());
    const auto recorded = history();
    for (std::size_t i = 0; i < results.size(); ++i) {
        const bool isDone = recorded.contains(m_files[i].filename());
        EXPECT_EQ(std::filesystem::exists(m_files[i]), !isDone) << results[i].errors;
        EXPECT_EQ(results[i].status, isDone ? 0 : 1) << results[i].errors;
        EXPECT_THAT(results[i].errors, HasSubstr(isDone ? "" : "Left as it was: 1 item."));
    }
    EXPECT_THAT(recorded, Each(testing::Pair(testing::_, 1)));
}

TEST_F(OneWriterTest, IsStartedByAMenuCommandIfTheBusHasAServiceFile) {
    std::filesystem::create_directories(home() / "services");
    std::ofstream(home() / "services/org.vexmoor.Vexmoor.service")
        << "[D-BUS Service]\nName=org.vexmoor.Vexmoor\nExec=" VEXMOOR_DESKTOP " --background\n";
    const auto item = write("item");
    const auto result = vexmoor({"feed", "--from-menu", "item"}).with("DISPLAY", ":0").run();
    EXPECT_EQ(result.status, 0) << result.errors;
    EXPECT_FALSE(std::filesystem::exists(item));
    EXPECT_TRUE(takesCommands());
    EXPECT_THAT(history(), Contains(testing::Pair("item", 1)));
}

} // namespace
} // namespace vexmoor::test
