#include "WiredParts.h"

#include "app/StatsWiring.h"

#include "dock/OwnDock.h"
#include "ui/Notice.h"
#include "ui/SettingsTab.h"
#include "ui/Switch.h"

#include <QAccessible>

#include <gmock/gmock.h>

namespace vexmoor {
namespace {

using namespace test;

QString spoken(QWidget& widget, QAccessible::Text text = QAccessible::Name) {
    return QAccessible::queryAccessibleInterface(&widget)->text(text);
}

/// Shows the window on its settings tab.
struct StatsWiringTest : WiredParts {
    OwnDock dock{[this] { return accessibility.answers(); }, [] { return std::nullopt; }};
    StatsWiring wiring{{program->ledger, program->settings, program->progression,
                        program->binnedItems, program->intake, key, dock, alerts, makeTimer()}};
    std::unique_ptr<StatsWindow> window = wiring.makeWindow();

    void show() {
        window->show();
        window->view().setTab(StatsView::Tab::settings);
    }
    [[nodiscard]] SettingsTab& tab() const { return window->view().settingsTab(); }
    /// Waits until a notice begins with that text, or until there is none.
    [[nodiscard]] bool complains(const QString& beginning, bool does = true) const {
        return eventuallyInLoop([&] {
            poll();
            return std::ranges::any_of(tab().findChildren<Notice*>(), [&](Notice* notice) {
                       return notice->isVisible() && spoken(*notice).startsWith(beginning);
                   }) == does;
        });
    }
};

TEST_F(StatsWiringTest, OffersToFixMissingRequirements) {
    const QString consent = "⌘⌫ needs permission to ask";
    beginWith({"nautilus"});
    show();
    ASSERT_TRUE(complains("Needs Accessibility access"));
    pressButton(tab(), "Open Settings");
    EXPECT_TRUE(tells("There are no accessibility settings"));
    installProgram("mate-at-properties", "echo > \"" + (home / "opened").native() + "\"\n");
    pressButton(tab(), "Open Settings");
    EXPECT_TRUE(eventuallyInLoop([this] { return exists(home / "opened"); }));
    FakeService service(connection("services"), "org.a11y.Bus", [](const QDBusMessage& call) {
        return call.createReply(QStringLiteral("unix:path=/nowhere"));
    });
    EXPECT_TRUE(complains("Needs Accessibility access", false));

    ASSERT_TRUE(complains(consent));
    around.answer = {.confirmed = true, .suppressed = false, .isGiven = true};
    pressButton(tab(), "Allow…");
    EXPECT_EQ(around.asked.size(), 1U);
    EXPECT_TRUE(complains(consent, false));
    pressButton(tab(), "Don't let Vexmoor ask Finder for the selection");
    EXPECT_EQ(key.automation().status().get(), AutomationStatus::denied);
    pressButton(tab(), "Allow");
    EXPECT_TRUE(complains(consent, false));
    EXPECT_EQ(around.asked.size(), 1U) << "the user is asked only once";

    key.focusReports().setMissing();
    ASSERT_TRUE(complains("Ctrl+Backspace doesn't work in file managers"));
    pressButton(tab(), "Turn On Support");
    EXPECT_TRUE(complains("Accessibility support is on."));
    EXPECT_THAT(service.calls, testing::Contains(QStringLiteral("Set")));
}

TEST_F(StatsWiringTest, ReportsWhereTheKeyDoesNotWork) {
    home.write(".config/Thunar/accels.scm", R"((gtk_accel_path "x" "<Ctrl>BackSpace"))");
    program->defaults->assign(Automation::kKey, std::string("granted"));
    key.automation().set(AutomationStatus::granted);
    beginWith({"thunar", "caja"});
    show();
    EXPECT_TRUE(complains("In Thunar, you assigned Ctrl+Backspace"));
    EXPECT_TRUE(complains("In Caja, Ctrl+Backspace can't work"));
    EXPECT_TRUE(tab().findChildren<Switch*>().last()->isVisible());
}

TEST_F(StatsWiringTest, HasNoSwitchIfNoFileManagerSupportsTheKey) {
    beginWith({"caja"});
    show();
    poll();
    EXPECT_FALSE(tab().findChildren<Switch*>().last()->isVisible());
}

} // namespace
} // namespace vexmoor
