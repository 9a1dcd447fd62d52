#include "CliTest.h"

#include "support/DeadVolume.h"
#include "support/PrivateBus.h"

#include <sys/stat.h>
#include <unistd.h>

namespace vexmoor::test {
namespace {

using testing::HasSubstr;
using testing::Not;

/// Runs the program with a fake desktop program beside it.
class DoctorTest : public CliTest {
  protected:
    DoctorTest() {
        const Path programs = m_scratch / "bin";
        std::filesystem::create_directories(programs);
        std::filesystem::copy_file(m_program, programs / "vexmoor");
        m_program = programs / "vexmoor";
    }

    void installScript(const Path& file, const std::string& script) const {
        ::chmod(m_scratch.write(file, "#!/bin/sh\n" + script + "\n").c_str(), 0755);
    }
    /// Sets the output of the desktop program for --describe.
    void describe(const std::string& answer) const {
        const Path text = m_scratch.write("answer", answer);
        installScript("bin/vexmoor-desktop",
                      "[ \"$1\" = --describe ] && /bin/cat '" + text.native() + "'");
    }

    [[nodiscard]] Command::Result doctor(const std::map<std::string, std::string>& variables = {},
                                         std::vector<std::string> arguments = {"doctor"}) const {
        auto command = vexmoor(std::move(arguments));
        command.with("PATH", m_scratch / "managers");
        for (const auto& [name, value] : variables)
            command.with(name, value);
        return command.run();
    }
    [[nodiscard]] Json report(const std::map<std::string, std::string>& variables = {}) const {
        const auto result = doctor(variables, {"doctor", "--json"});
        EXPECT_EQ(result.status, 0) << result.errors;
        auto document = Json::parse(result.output, nullptr, false);
        EXPECT_FALSE(document.is_discarded()) << result.output;
        return document;
    }
};

const std::string kOnSway = R"({"version": "0.1.0", "qt": "6.4.2",
  "session": {"xwayland": true, "windowManager": "wlroots wm",
              "screens": [{"width": 2560, "height": 1440, "scale": 1.5}]},
  "tile": {"reason": "compositorHasLayers", "shown": true, "found": true}})";

TEST_F(DoctorTest, ReportsHowTheTileIsShownAndWhy) {
    struct Case {
        std::string answer;
        std::vector<std::string> lines;
    };
    const std::string x11 = R"({"version": "0.1.0", "qt": "6.8.2",
      "session": {"xwayland": false, "windowManager": "Openbox", "screens": []},
      "tile": {"reason": "isX11", "handling": "managed"}})";
    const Case cases[] = {
        {kOnSway,
         {"0.1.0, Qt 6.4.2", "Wayland, with XWayland", "wlroots wm", "2560 × 1440 at scale 1.5",
          "by the compositor itself, which has zwlr_layer_shell_v1", "can rise above it"}},
        {x11,
         {"0.1.0, Qt 6.8.2", "X11", "as a window, since the session is one of X11",
          "managed by the window manager", "vexmoor-desktop does not run"}},
        {R"({"version": "0.1.0", "qt": "6.4.2", "tile": {"reason": "noXwayland"}})",
         {"not at all: the session has no XWayland"}},
        {"no JSON", {"not installed, or silent", "unknown: vexmoor-desktop does not answer"}},
    };
    for (const auto& [answer, lines] : cases) {
        describe(answer);
        const auto result = doctor({{"DISPLAY", ":9"}});
        EXPECT_EQ(result.status, 0) << result.errors;
        for (const auto& line : lines)
            EXPECT_THAT(result.output, HasSubstr(line));
    }
    describe(kOnSway);
    const auto tile = report()["tile"];
    EXPECT_EQ(tile, Json::parse(R"({"reason": "compositorHasLayers", "shown": true,
                                    "found": true, "running": true})"));
}

TEST_F(DoctorTest, ReportsTheWayOfTheKeyByFileManager) {
    for (const char* const manager : {"thunar", "caja", "spacefm"})
        installScript(Path("managers") / manager, "exit 0");
    const auto ways = [this] {
        std::map<std::string, std::string> result;
        const Json document = report({{"DISPLAY", ":9"}});
        for (const auto& manager : document["key"]["fileManagers"])
            result[manager["id"]] = manager["way"];
        return result;
    };
    using Ways = std::map<std::string, std::string>;
    describe(kOnSway);
    EXPECT_EQ(ways(), (Ways{{"thunar", "none"}, {"caja", "none"}, {"spacefm", "none"}}));
    ASSERT_EQ(doctor({}, {"integrate", "install"}).status, 0);
    EXPECT_EQ(ways(), (Ways{{"thunar", "accelerator"}, {"caja", "menu"}, {"spacefm", "none"}}));
    describe("{}");
    EXPECT_EQ(ways(), (Ways{{"thunar", "accelerator"}, {"caja", "grab"}, {"spacefm", "grab"}}));
    ASSERT_EQ(run({"settings", "captureFinderDelete", "off"}).status, 0);
    EXPECT_EQ(ways(), (Ways{{"thunar", "accelerator"}, {"caja", "menu"}, {"spacefm", "none"}}));
}

TEST_F(DoctorTest, ReportsWhetherRecordsAndBinAgree) {
    make("kept");
    make("taken away");
    EXPECT_EQ(report()["records"]["canBePutBack"], 0);
    ASSERT_EQ(run({"feed", "kept", "taken away"}).status, 0);
    EXPECT_EQ(report()["records"], Json::parse(R"({"readable": true, "canBePutBack": 2,
                                                   "inBin": 2, "away": 0, "missing": 0})"));
    std::filesystem::remove(m_data / "Trash/files/taken away");
    EXPECT_EQ(report()["records"], Json::parse(R"({"readable": true, "canBePutBack": 2,
                                                   "inBin": 1, "away": 0, "missing": 1})"));
    EXPECT_THAT(doctor().output,
                HasSubstr("2 items can be put back; in the Bin: 1, on volumes that are away: 0, "
                          "missing: 1"));
    std::filesystem::remove(m_data / "vexmoor/defaults.db-wal");
    m_scratch.write("home/data/vexmoor/defaults.db", "no database, but long enough to be one");
    EXPECT_EQ(report()["records"]["readable"], false);
}

TEST_F(DoctorTest, ReportsTheServicesOfTheSession) {
    const auto without = report({{"XDG_RUNTIME_DIR", m_scratch / "empty"}});
    EXPECT_EQ(without["session"]["bus"], false);
    EXPECT_EQ(without["services"]["accessibility"], "missing");
    EXPECT_EQ(without["services"]["sound"], "missing");
    const PrivateBus bus;
    const auto with = report({{"DBUS_SESSION_BUS_ADDRESS", bus.address()}});
    EXPECT_EQ(with["session"]["bus"], true);
    EXPECT_EQ(with["services"]["notifications"], "missing");
    const Path sound = bus.folder() / "bus"; // any socket that accepts connections
    EXPECT_EQ(report({{"PULSE_SERVER", "unix:" + sound.native()}})["services"]["sound"],
              "pulseaudio");
}

TEST_F(DoctorTest, DoesNotWaitForAHangingVolume) {
    const Path folder = m_home / "usb";
    std::filesystem::create_directory(folder);
    const DeadVolume volume(folder);
    if (!volume.mount())
        GTEST_SKIP() << "nothing can be mounted here";
    const auto bins = report()["bins"];
    EXPECT_THAT(bins,
                testing::Contains(Json({{"place", "/…"}, {"type", "fuse"}, {"bin", "noAnswer"}})));
    EXPECT_THAT(bins, testing::Contains(testing::ResultOf(
                          [](const Json& bin) { return bin["place"]; }, Json("~"))));
}

TEST_F(DoctorTest, OmitsPrivateData) {
    make("secret plans.txt");
    ASSERT_EQ(run({"feed", "secret plans.txt"}).status, 0);
    describe(kOnSway);
    for (const auto& arguments : {std::vector<std::string>{"doctor"}, {"doctor", "--json"}}) {
        const auto output = doctor({{"USER", "xavier"}}, arguments).output;
        EXPECT_THAT(output, HasSubstr("~"));
        for (const auto& secret : {std::string("secret"), m_home.native(), std::string("xavier")})
            EXPECT_THAT(output, Not(HasSubstr(secret)));
    }
}

} // namespace
} // namespace vexmoor::test
