#include "desktopbus/DesktopPreferences.h"

#include "FakeSettingsPortal.h"

#include "support/ConnectedBus.h"
#include "support/MainLoop.h"

namespace vexmoor {
namespace {

using test::eventuallyInLoop;
using test::FakeSettingsPortal;
using Values = DesktopPreferences::Values;

struct DesktopPreferencesTest : testing::Test {
    void startPortal(const FakeSettingsPortal::Groups& groups) {
        portal.emplace(QDBusConnection("server"), groups);
    }
    void startPreferences() { preferences.emplace(QDBusConnection("client")); }
    [[nodiscard]] bool become(const Values& values) {
        return eventuallyInLoop([&] { return preferences->values() == values; });
    }
    /// Waits until requests and replies have been delivered.
    void deliverAll() const {
        for (int round = 0; round < 3; ++round)
            test::deliverMessages({"server", "client"});
    }

    test::ConnectedBus bus{"server", "client"};
    std::optional<FakeSettingsPortal> portal;
    std::optional<DesktopPreferences> preferences;
};

const QString kAppearance = "org.freedesktop.appearance";
const QString kGnome = "org.gnome.desktop.interface";
const QString kKde = "org.kde.kdeglobals.KDE";

TEST_F(DesktopPreferencesTest, ReadsEachDesktopsSettings) {
    struct Case {
        FakeSettingsPortal::Groups groups;
        Values values;
    };
    const QVariant dark = 1U;
    const QVariant light = 2U;
    for (const auto& [groups, values] : {
             Case{{{kAppearance, {{"color-scheme", dark}}}}, {ColorScheme::dark, false}},
             Case{{{kAppearance, {{"color-scheme", light}}}}, {ColorScheme::light, false}},
             Case{{{kAppearance, {{"color-scheme", 0U}}}}, {}},
             Case{{{kAppearance, {{"color-scheme", 77U}}}}, {}},
             Case{{{kAppearance, {{"color-scheme", "dark"}}}}, {}},
             Case{
                 {{kAppearance, {{"color-scheme", dark}}}, {kGnome, {{"enable-animations", true}}}},
                 {ColorScheme::dark, false}},
             Case{{{kGnome, {{"enable-animations", false}}}}, {ColorScheme::noPreference, true}},
             Case{{{kKde, {{"AnimationDurationFactor", "0"}}}}, {ColorScheme::noPreference, true}},
             Case{{{kKde, {{"AnimationDurationFactor", "0.5"}}}}, {}},
             Case{{{kKde, {{"AnimationDurationFactor", "fast"}}}}, {}},
             Case{{{kAppearance, {{"reduced-motion", 1U}, {"color-scheme", light}}}},
                  {ColorScheme::light, true}},
             Case{{}, {}},
         }) {
        startPortal(groups);
        startPreferences();
        deliverAll();
        EXPECT_EQ(preferences->values(), values);
        preferences.reset();
        portal.reset();
    }
}

TEST_F(DesktopPreferencesTest, FollowsChangesAndALatePortal) {
    startPreferences();
    deliverAll();
    EXPECT_EQ(preferences->values(), Values());
    startPortal({{kAppearance, {{"color-scheme", 1U}}}});
    ASSERT_TRUE(become({ColorScheme::dark, false}));
    std::vector<Values> changes;
    QObject::connect(&*preferences, &DesktopPreferences::changed, &*preferences,
                     [&](const Values& values) { changes.push_back(values); });
    portal->set(kAppearance, "color-scheme", 2U);
    ASSERT_TRUE(become({ColorScheme::light, false}));
    portal->set(kGnome, "enable-animations", false);
    ASSERT_TRUE(become({ColorScheme::light, true}));
    portal->set(kGnome, "font-name", "Sans 11");
    deliverAll();
    EXPECT_EQ(changes,
              (std::vector<Values>{{ColorScheme::light, false}, {ColorScheme::light, true}}));
    portal.reset();
    deliverAll();
    EXPECT_EQ(preferences->values(), (Values{ColorScheme::light, true})) << "they are kept";
}

TEST_F(DesktopPreferencesTest, IgnoresSignalsOfOtherPrograms) {
    startPortal({});
    startPreferences();
    deliverAll();
    QDBusMessage forged = QDBusMessage::createSignal(
        "/org/freedesktop/portal/desktop", "org.freedesktop.portal.Settings", "SettingChanged");
    forged << kAppearance << "color-scheme" << QVariant::fromValue(QDBusVariant(1U));
    QDBusConnection("client").send(forged);
    deliverAll();
    EXPECT_EQ(preferences->values(), Values());
    portal->answersNonsense = true;
    portal->set(kAppearance, "color-scheme", 1U);
    deliverAll();
    EXPECT_EQ(preferences->values(), Values());
}

} // namespace
} // namespace vexmoor
