#include "TabFixture.h"

#include "ui/AccentButton.h"
#include "ui/Notice.h"
#include "ui/SettingRow.h"
#include "ui/SettingsTab.h"
#include "ui/SettingText.h"
#include "ui/Switch.h"

#include <gmock/gmock.h>

namespace vexmoor {
namespace {

using namespace test;

TEST(PermissionNoticeTest, NamesTheProblemAndItsRemedy) {
    using Kind = Permissions::KeyHint::Kind;
    using Remedy = PermissionNotice::Remedy;
    using Reports = Permissions::FocusReports;
    const QString access = "Needs Accessibility access for the Dock tile and the ⌘⌫ shortcut.";
    const QString consent = "⌘⌫ needs permission to ask Finder for the selection.";
    struct Case {
        const char* description;
        std::function<void(Permissions&)> change;
        bool capturesKey;
        std::vector<PermissionNotice> notices;
    };
    const Case cases[] = {
        {"all is well", [](Permissions&) {}, true, {}},
        {"no accessibility",
         [](Permissions& p) { p.accessible = false; },
         false,
         {{access, "Open Settings", Remedy::accessibilitySettings}}},
        {"nothing was asked",
         [](Permissions& p) {
             p.accessible = false;
             p.automation = AutomationStatus::notAsked;
             p.focusReports = Reports::missing;
         },
         true,
         {{access, "Open Settings", Remedy::accessibilitySettings},
          {consent, "Allow…", Remedy::automation}}},
        {"denied, with the key off",
         [](Permissions& p) { p.automation = AutomationStatus::denied; },
         false,
         {{consent, "Allow", Remedy::automation}}},
        {"nothing can take the key",
         [](Permissions& p) {
             p.keyIsPossible = false;
             p.automation = AutomationStatus::notAsked;
         },
         true,
         {}},
        {"an invisible file manager",
         [](Permissions& p) { p.focusReports = Reports::missing; },
         true,
         {{"Ctrl+Backspace doesn't work in file managers that were started without accessibility "
           "support.",
           "Turn On Support", Remedy::focusReports}}},
        {"one that is to be started again, and others",
         [](Permissions& p) {
             p.focusReports = Reports::afterRestart;
             p.keyHints = {
                 {"Nemo", Kind::needsRestart}, {"Thunar", Kind::taken}, {"Caja", Kind::menuOnly}};
         },
         true,
         {{"Accessibility support is on. Restart the file manager to use Ctrl+Backspace "
           "there.",
           "", Remedy::none},
          {"Restart Nemo to use Ctrl+Backspace there.", "", Remedy::none},
          {"In Thunar, you assigned Ctrl+Backspace to another action.", "", Remedy::none},
          {"In Caja, Ctrl+Backspace can't work in this session. Right-click files and choose Feed "
           "to Vexmoor.",
           "", Remedy::none}}},
        {"hints about a key that is off",
         [](Permissions& p) {
             p.keyHints = {{"Nemo", Kind::needsRestart}};
         },
         false,
         {}},
    };
    for (const Case& each : cases) {
        Permissions permissions;
        each.change(permissions);
        EXPECT_EQ(PermissionNotice::of(permissions, each.capturesKey), each.notices)
            << each.description;
    }
}

struct SettingsTabTest : TabFixture {
    SettingsTab tab{settings};
    QList<Switch*> switches{tab.findChildren<Switch*>()};

    [[nodiscard]] QList<Notice*> notices() const {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return tab.findChildren<Notice*>();
    }
    /// Presses the button of the only notice.
    void pressButton() const { notices().first()->findChild<AccentButton*>()->click(); }
};

TEST_F(SettingsTabTest, SwitchesAndSettingsFollowEachOther) {
    struct Case {
        const char* label;
        const char* captionOn;
        const char* captionOff;
        Setting<bool> Settings::*setting;
    };
    const Case cases[] = {
        {"Dissolve forever", "Dissolve skips the Bin entirely. Gone means gone.",
         "Off: sacrifices go to the Bin, where Put Back still works.", nullptr},
        {"Ask before dissolving", "", "", &Settings::confirmDissolve},
        {"Sizzle sound", "", "", &Settings::sound},
        {"Flames rise above the Dock", "", "", &Settings::escapeDock},
        {"Show in the menu bar", "", "", &Settings::showMenuBarIcon},
        {"⌘⌫ in Finder feeds the cauldron",
         "Or right-click files and choose Services > Feed to Vexmoor.",
         "Or right-click files and choose Services > Feed to Vexmoor.",
         &Settings::captureFinderDelete},
    };
    focus(tab, switches[0]);
    ASSERT_EQ(switches.size(), std::ssize(cases));
    for (qsizetype index = 0; index < switches.size(); ++index) {
        const Case& expected = cases[index];
        SCOPED_TRACE(expected.label);
        Switch* const control = switches[index];
        EXPECT_EQ(spoken(control), expected.label);
        EXPECT_EQ(face(control).role(), QAccessible::CheckBox);
        const auto stored = [&] {
            return expected.setting != nullptr ? (settings.*expected.setting).get()
                                               : settings.mode.get() == DisposeMode::dissolve;
        };
        const auto store = [&](bool isOn) {
            if (expected.setting != nullptr)
                (settings.*expected.setting).set(isOn);
            else
                settings.mode.set(isOn ? DisposeMode::dissolve : DisposeMode::bin);
        };
        for (const bool isOn : {true, false, true}) {
            store(isOn);
            EXPECT_EQ(face(control).state().checked, isOn);
            EXPECT_EQ(description(control), isOn ? expected.captionOn : expected.captionOff);
            press(*control, Qt::Key_Space);
            EXPECT_EQ(stored(), !isOn);
            EXPECT_EQ(description(control), isOn ? expected.captionOff : expected.captionOn);
        }
    }
}

TEST_F(SettingsTabTest, ClickingTheTextTogglesTheSwitch) {
    tab.resize(360, 450);
    tab.show();
    auto* const row = tab.findChildren<SettingRow*>()[2];
    const QImage on = row->grab().toImage();
    click(*row, {30, 20});
    EXPECT_FALSE(settings.sound.get());
    EXPECT_EQ(row->grab().toImage(), on) << "the knob starts at its previous position";
    EXPECT_TRUE(eventuallyInLoop([&] { return row->grab().toImage() != on; }));
}

TEST_F(SettingsTabTest, FocusedSwitchHasARing) {
    focus(tab, switches[1]);
    const QImage ringed = switches[1]->grab().toImage();
    switches[2]->setFocus(Qt::TabFocusReason);
    EXPECT_NE(switches[1]->grab().toImage(), ringed);
}

TEST_F(SettingsTabTest, NoticesFollowThePermissions) {
    tab.show();
    EXPECT_TRUE(notices().isEmpty());
    std::vector<std::string> asked;
    const auto note = [&asked](const char* what) {
        return [&asked, what] { asked.push_back(what); };
    };
    QObject::connect(&tab, &SettingsTab::accessibilitySettingsRequested, note("settings"));
    QObject::connect(&tab, &SettingsTab::automationRequested, note("consent"));
    QObject::connect(&tab, &SettingsTab::focusReportsRequested, note("reports"));
    QObject::connect(&tab, &SettingsTab::automationWithdrawn, note("withdrawn"));

    Permissions permissions;
    permissions.accessible = false;
    tab.setPermissions(permissions);
    pressButton();
    permissions = {};
    permissions.automation = AutomationStatus::denied;
    tab.setPermissions(permissions);
    EXPECT_EQ(spoken(notices().first()), "⌘⌫ needs permission to ask Finder for the selection.");
    const Notice* const kept = notices().first();
    tab.setPermissions(permissions);
    EXPECT_EQ(notices().first(), kept);
    pressButton();
    permissions = {};
    permissions.focusReports = Permissions::FocusReports::missing;
    tab.setPermissions(permissions);
    pressButton();
    settings.captureFinderDelete.set(false);
    EXPECT_TRUE(notices().isEmpty());

    const auto buttons = tab.findChildren<AccentButton*>();
    ASSERT_EQ(buttons.size(), 1);
    EXPECT_TRUE(buttons[0]->isVisible());
    buttons[0]->click();
    EXPECT_THAT(asked, testing::ElementsAre("settings", "consent", "reports", "withdrawn"));
    permissions.automation = AutomationStatus::notAsked;
    tab.setPermissions(permissions);
    EXPECT_FALSE(buttons[0]->isVisible());
}

TEST_F(SettingsTabTest, ImpossibleKeyHasNoSwitch) {
    tab.show();
    Permissions permissions;
    permissions.keyIsPossible = false;
    tab.setPermissions(permissions);
    EXPECT_FALSE(switches[5]->isVisible());
    auto* const row = switches[5]->parentWidget();
    EXPECT_EQ(spoken(row), "⌘⌫ in Finder feeds the cauldron");
    EXPECT_EQ(description(row), "Not in this session: no file manager here can bind the key. "
                                "Right-click files and choose Feed to Vexmoor.");
    tab.setPermissions({});
    EXPECT_TRUE(switches[5]->isVisible());
}

} // namespace
} // namespace vexmoor
