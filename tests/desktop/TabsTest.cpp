#include "DesktopTest.h"

#include "base/SqliteUserDefaults.h"
#include "finder/Automation.h"
#include "skins/Skin.h"

namespace vexmoor {
namespace {

using namespace test;

/// The window's tabs, by mouse and keyboard. The window is high enough to show each tab completely.
struct TabsTest : DesktopTest {
    void SetUp() override {
        DesktopTest::SetUp();
        if (!IsSkipped())
            openSession({.size = "1280x1000"});
    }
    /// Starts the program and selects that tab in its window.
    void startOn(const std::string& keys) {
        start({});
        ASSERT_TRUE(eventually([&] {
            const auto active = session->screen().active();
            return active && active->title == "Vexmoor";
        }));
        session->xdotool("windowsize --sync " + std::to_string(cauldron->statsWindow()->id) +
                         " 400 900");
        session->press(keys);
    }
    void store(std::string_view key, const UserDefaults::Value& value) const {
        auto defaults =
            SqliteUserDefaults::open(session->home() / ".local/share/vexmoor/defaults.db",
                                     SqliteUserDefaults::Access::readWrite, [](const Error&) {});
        defaults.value()->assign(key, value);
    }
    /// Waits for the switch or skin of that name to be as wanted; nullopt if it never is.
    [[nodiscard]] std::optional<AccessibleElement>
    control(const std::string& name,
            const std::function<bool(const AccessibleElement&)>& isWanted = {}) const {
        std::optional<AccessibleElement> found;
        eventually([&] {
            for (const AccessibleElement& one : cauldron->elements())
                if (one.isShowing && one.name == name &&
                    (one.role == "check box" || one.role == "radio button") &&
                    (!isWanted || isWanted(one)))
                    found = one;
            return found.has_value();
        });
        return found;
    }
    [[nodiscard]] bool isChecked(const char* name, bool checked) const {
        return control(name, [checked](const auto& one) { return one.isChecked == checked; })
            .has_value();
    }
    void click(const char* name) const { session->click(control(name).value().place.center()); }
    [[nodiscard]] bool becomes(const char* setting, const std::string& value) const {
        return eventually([&] { return cauldron->setting(setting) == value; });
    }
    [[nodiscard]] bool tileShows(QRgb colour) const {
        return eventually([&] {
            return countOf(session->screen().picture().copy(cauldron->tile().value().frame),
                           {colour}) > 0;
        });
    }
};

TEST_F(TabsTest, EachSwitchHasItsEffectAfterARestartToo) {
    struct Switch {
        const char* label;
        const char* setting;
        bool isOn;
    };
    constexpr Switch kSwitches[] = {
        {"Dissolve forever", "mode", false},
        {"Ask before dissolving", "confirmDissolve", true},
        {"Sizzle sound", "sound", true},
        {"Flames rise above the Dock", "escapeDock", true},
        {"Show in the menu bar", "showMenuBarIcon", true},
        {"Ctrl+Backspace in the file manager feeds the cauldron", "captureFinderDelete", true},
    };
    const auto valueOf = [](const Switch& one, bool isOn) -> std::string {
        if (one.setting == std::string("mode"))
            return isOn ? "dissolve" : "bin";
        return isOn ? "on" : "off";
    };
    const auto clickAll = [&](bool wereUsual) {
        for (const Switch& one : kSwitches) {
            SCOPED_TRACE(one.label);
            EXPECT_TRUE(isChecked(one.label, one.isOn == wereUsual));
            click(one.label);
            EXPECT_TRUE(isChecked(one.label, one.isOn != wereUsual));
            EXPECT_TRUE(becomes(one.setting, valueOf(one, one.isOn != wereUsual)));
        }
    };
    const auto keyIsBound = [&](bool expected) {
        const Path keys = session->home() / ".config/Thunar/accels.scm";
        return eventually([&] { return std::filesystem::exists(keys) == expected; });
    };
    store(Automation::kKey, std::string("granted"));
    startOn("ctrl+4");
    EXPECT_TRUE(keyIsBound(true));
    clickAll(true);
    EXPECT_TRUE(keyIsBound(false));
    EXPECT_EQ(quit(), 0);

    startOn("ctrl+4");
    ASSERT_TRUE(session->sound().recordsAnother(0.1));
    EXPECT_TRUE(tileShows(qRgb(0xE5, 0x48, 0x4D))) << "the badge is shown";
    const Path item = session->write("item", "x");
    ASSERT_EQ(cauldron->feed({item}), 0);
    EXPECT_TRUE(isGone(item)) << "no question was asked";
    ASSERT_TRUE(cauldron->records(1));
    EXPECT_EQ(cauldron->history()[0]["mode"], "dissolve");
    ASSERT_TRUE(session->sound().recordsAnother(1));
    EXPECT_THAT(session->sound().recorded(), testing::Each(0));
    EXPECT_FALSE(cauldron->flames());
    EXPECT_TRUE(keyIsBound(false));
    session->screen().keepPicture("settings");
    clickAll(false);
    EXPECT_TRUE(keyIsBound(true));
}

TEST_F(TabsTest, OffersUnlockedSkinsAndExplainsTheLockedOnes) {
    const Pixel body = Skin::copper().bodyColour;
    startOn("ctrl+3");
    const auto copper = control("Copper");
    ASSERT_TRUE(copper);
    EXPECT_FALSE(copper->isEnabled);
    EXPECT_TRUE(copper->description.starts_with("Locked: ")) << copper->description;
    click("Copper");
    std::vector<Path> items;
    for (int i = 0; i < 10; ++i)
        items.push_back(session->write("item " + std::to_string(i), "x"));
    ASSERT_EQ(cauldron->feed(items), 0);
    EXPECT_TRUE(control("Copper", [](const auto& one) { return one.isEnabled; }));
    EXPECT_EQ(cauldron->setting("skin"), "iron") << "a locked skin cannot be selected";
    session->screen().keepPicture("skins");
    click("Copper");
    EXPECT_TRUE(becomes("skin", "copper"));
    EXPECT_TRUE(isChecked("Copper", true));
    EXPECT_TRUE(tileShows(qRgb(body.r, body.g, body.b)));
    click("Gold");
    const auto refused = session->command({VEXMOOR_PROGRAM, "settings", "skin", "gold"}).run();
    EXPECT_NE(refused.status, 0);
    EXPECT_THAT(refused.errors, testing::HasSubstr("The Gold cauldron is still locked."));
    EXPECT_EQ(cauldron->setting("skin"), "copper");
}

} // namespace
} // namespace vexmoor
