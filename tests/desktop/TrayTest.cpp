#include "Tray.h"
#include "DesktopTest.h"

#include "desktopbus/FakeService.h"
#include "desktopbus/FakeSettingsPortal.h"
#include "support/MainLoop.h"

#include <algorithm>
#include <cstdlib>

namespace vexmoor {
namespace {

using namespace test;
using testing::ElementsAre;
using testing::HasSubstr;

struct TrayTest : DesktopTest {
    void SetUp() override {
        DesktopTest::SetUp();
        if (!IsSkipped() && Tray::missing())
            GTEST_SKIP() << *Tray::missing() << " is not installed";
        if (!IsSkipped())
            openSession();
    }
    void openTray(bool isDark = true) { tray = std::make_unique<Tray>(*session, isDark); }
    [[nodiscard]] bool hasIcons(int count) const {
        return eventually([&] { return tray->icons() == count; });
    }
    /// True if the panel shows the pot's silhouette in that colour.
    [[nodiscard]] bool showsPot(QRgb colour = kForLight) const {
        return eventuallyInLoop([&] {
            const QRect place = tray->place().value_or(QRect());
            return countOf(session->screen().picture().copy(place), {colour}) > 50;
        });
    }
    void set(const std::string& setting, const std::string& value) const {
        session->run({VEXMOOR_PROGRAM, "settings", setting, value});
    }
    [[nodiscard]] bool becomes(const std::string& setting, const std::string& value) const {
        return eventually([&] { return cauldron->setting(setting) == value; });
    }
    [[nodiscard]] std::optional<SeenWindow> popup() const {
        return session->screen().find([](const SeenWindow& window) {
            return !window.isManaged && !window.isDock && window.className == Cauldron::kName;
        });
    }
    /// Starts the program with these scripts in place of system programs.
    void startWith(const std::map<std::string, std::string>& scripts) {
        for (const auto& [name, script] : scripts)
            std::filesystem::permissions(session->write("bin/" + name, "#!/bin/sh\n" + script),
                                         std::filesystem::perms::owner_all);
        const std::string own = (session->home() / "bin").string();
        start({"--background"}, {{"PATH", own + ":" + std::getenv("PATH")}});
    }

    static constexpr QRgb kForLight = qRgb(0x36, 0x36, 0x3c);
    static constexpr QRgb kForDark = qRgb(0xf4, 0xf4, 0xf6);
    std::unique_ptr<Tray> tray;
};

TEST_F(TrayTest, ShowsItsIconInAnyTrayIfEnabled) {
    for (const bool isDark : {true, false}) {
        if (isDark)
            start();
        openTray(isDark);
        EXPECT_TRUE(hasIcons(1)) << "in a tray that started late or again";
        EXPECT_TRUE(showsPot());
        session->screen().keepPicture(isDark ? "tray-dark" : "tray-light", *tray->place());
        set("showMenuBarIcon", "off");
        EXPECT_TRUE(hasIcons(0));
        set("showMenuBarIcon", "on");
        EXPECT_TRUE(hasIcons(1));
        tray.reset();
        EXPECT_TRUE(
            eventually([&] { return !session->hasService("org.kde.StatusNotifierWatcher"); }));
    }
    openTray();
    ASSERT_TRUE(hasIcons(1));
    tray->choose("Hide Menu Bar Icon");
    EXPECT_TRUE(hasIcons(0));
    EXPECT_TRUE(becomes("showMenuBarIcon", "off"));
    EXPECT_EQ(quit(), 0);
    start();
    EXPECT_TRUE(eventually([&] { return cauldron->tile().has_value(); }));
    EXPECT_EQ(tray->icons(), 0);
}

TEST_F(TrayTest, ColoursItsIconForLightAndDarkThemes) {
    const QString appearance = "org.freedesktop.appearance";
    FakeSettingsPortal portal(session->bus(), {{appearance, {{"color-scheme", 1U}}}});
    start();
    openTray();
    EXPECT_TRUE(showsPot(kForDark));
    portal.set(appearance, "color-scheme", 2U);
    EXPECT_TRUE(showsPot(kForLight));
    portal.set(appearance, "color-scheme", 1U);
    EXPECT_TRUE(showsPot(kForDark));
}

TEST_F(TrayTest, OpensItsPopupOnClickAndWorksByKeyboard) {
    start();
    openTray();
    ASSERT_TRUE(hasIcons(1) && showsPot());
    session->click(tray->place().value().topLeft() + QPoint(15, 15));
    ASSERT_TRUE(eventually([&] { return popup().has_value(); }));
    session->screen().keepPicture("tray-popup");
    session->press("Down Down Down Down Down Return"); // disabled entries are skipped
    EXPECT_TRUE(becomes("mode", "dissolve"));
    EXPECT_TRUE(eventually([&] { return !popup().has_value(); }));
}

TEST_F(TrayTest, ExportsAMenuThatIsUpdated) {
    const Path item = session->write("one & two_three", "1");
    start();
    openTray();
    ASSERT_TRUE(hasIcons(1));
    EXPECT_THAT(tray->menu().at(0).label, HasSubstr("0 sacrifices"));
    EXPECT_FALSE(tray->item("Put Back Last Sacrifice").isEnabled);
    ASSERT_EQ(cauldron->feed({item}), 0);
    ASSERT_TRUE(cauldron->records(1));
    EXPECT_THAT(tray->menu().at(0).label, HasSubstr("1 sacrifice "));
    EXPECT_TRUE(tray->item("Put Back Sacrifice").isEnabled);
    const auto recent = tray->item("Recent Sacrifices").children;
    ASSERT_EQ(recent.size(), 1U);
    EXPECT_TRUE(recent[0].hasIcon && recent[0].isEnabled);
    tray->choose(recent[0].label);
    EXPECT_TRUE(cauldron->records(1, "restored"));
    EXPECT_TRUE(std::filesystem::exists(item));
    EXPECT_FALSE(tray->item(recent[0].label).isEnabled);

    EXPECT_EQ(tray->item("Sizzle sound").checked, true);
    tray->choose("Sizzle sound");
    EXPECT_TRUE(becomes("sound", "off"));
    EXPECT_EQ(tray->item("Sizzle sound").checked, false);
    EXPECT_EQ(tray->item("Iron").checked, true);
}

TEST_F(TrayTest, RunsTheChosenCommands) {
    const Path item = session->write("one", "1");
    start();
    ASSERT_EQ(cauldron->feed({item}), 0);
    ASSERT_TRUE(cauldron->records(1));
    EXPECT_EQ(quit(), 0);
    startWith({{"gio", "echo \"$@\" > \"$HOME/asked\""}});
    openTray();
    ASSERT_TRUE(hasIcons(1));
    tray->choose("Put Back Last Sacrifice");
    EXPECT_TRUE(cauldron->records(1, "restored")) << "from an earlier run";
    tray->choose("Test the Flames");
    EXPECT_TRUE(cauldron->burns());
    tray->choose("Open the Bin");
    EXPECT_TRUE(eventually([&] {
        return std::filesystem::exists(session->home() / "asked") &&
               contents(session->home() / "asked") == "open trash:///\n";
    }));
    tray->choose("Open Vexmoor…");
    EXPECT_TRUE(eventually([&] { return cauldron->statsWindow().has_value(); }));
    tray->choose("Check for Updates…");
    EXPECT_TRUE(cauldron->alerts("Check for Updates"));
    session->press("Return");
    EXPECT_TRUE(eventually([&] { return !cauldron->isAlerting(); }));
    tray->choose("Quit Vexmoor");
    EXPECT_EQ(cauldron->program().end(), 0);
}

TEST_F(TrayTest, ShowsTheUpdateCheckUntilItIsCancelled) {
    const FakeService packages(session->bus(), "org.freedesktop.PackageKit",
                               [](const QDBusMessage&) { return QDBusMessage(); });
    start({}, {{"DBUS_SYSTEM_BUS_ADDRESS", session->bus().name().toStdString()}});
    openTray();
    ASSERT_TRUE(hasIcons(1));
    const auto isOffered = [&](const char* label, bool isEnabled) {
        return eventuallyInLoop(
            [&] { return tray->has(label) && tray->item(label).isEnabled == isEnabled; });
    };
    const auto window = [&](const char* title) {
        return session->screen().find(
            [&](const SeenWindow& seen) { return seen.title.starts_with(title); });
    };
    tray->choose("Check for Updates…");
    EXPECT_TRUE(isOffered("Checking for Updates…", false));
    ASSERT_TRUE(eventuallyInLoop([&] { return window("Check for Updates").has_value(); }));
    const auto elements = cauldron->elements();
    EXPECT_EQ(std::ranges::count_if(elements,
                                    [](const AccessibleElement& element) {
                                        return element.role == "menu item" &&
                                               element.name == "Checking for Updates…";
                                    }),
              1)
        << "in the window's menu";
    session->xdotool("windowactivate --sync " +
                     std::to_string(window("Check for Updates").value().id));
    session->press("Escape");
    EXPECT_TRUE(isOffered("Check for Updates…", true));
    EXPECT_FALSE(window("Check for Updates").has_value());
}

TEST_F(TrayTest, ReportsThatNoProgramOpensTheBin) {
    startWith({{"gio", "echo nothing takes $2 >&2; exit 2"},
               {"kde-open", "exit 1"},
               {"kde-open5", "exit 1"},
               {"xdg-open", "exit 3"}});
    openTray();
    ASSERT_TRUE(hasIcons(1));
    tray->choose("Open the Bin");
    ASSERT_TRUE(cauldron->alerts("The Bin couldn't be opened"));
    session->press("Return");
}

} // namespace
} // namespace vexmoor
