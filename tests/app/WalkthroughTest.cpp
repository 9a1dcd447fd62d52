#include "WiredParts.h"

#include "app/Walkthrough.h"

#include "base/Text.h"

#include <QLabel>

namespace vexmoor {
namespace {

using namespace test;
using Page = OnboardingView::Page;

struct WalkthroughTest : WiredParts {
    Walkthrough walkthrough{{*program->defaults, program->settings, program->progression, key,
                             accessibility, alerts, main, makeTimer()}};

    [[nodiscard]] static OnboardingView& view() { return *shown<OnboardingView>(); }
    void press(const std::string& source) const {
        pressButton(view(), QString::fromStdString(text(source)));
    }
    /// Waits for a text on the page that begins with this one.
    [[nodiscard]] bool says(const std::string& source) const {
        const QString beginning = QString::fromStdString(text(source));
        return eventuallyInLoop([&] {
            poll();
            return std::ranges::any_of(view().findChildren<QLabel*>(), [&](const QLabel* label) {
                return label->isVisible() && label->text().startsWith(beginning);
            });
        });
    }
};

TEST_F(WalkthroughTest, FollowsTheSessionAndOpensItsSettings) {
    int settings = 0;
    QObject::connect(&walkthrough, &Walkthrough::settingsRequested, [&] { ++settings; });
    key.automation().set(AutomationStatus::denied);
    beginWith({"nautilus"});
    EXPECT_TRUE(walkthrough.comesFirst());
    walkthrough.show();
    press("Continue");
    press("Open System Settings…");
    EXPECT_TRUE(tells("There are no accessibility settings"));
    EXPECT_EQ(view().page(), Page::accessibility);
    const FakeService service(connection("services"), "org.a11y.Bus", [](const QDBusMessage& call) {
        return call.createReply(QStringLiteral("unix:path=/nowhere"));
    });
    press("Continue");
    EXPECT_EQ(view().page(), Page::automation);
    press("Open System Settings…");
    EXPECT_EQ(settings, 1);
    key.automation().set(AutomationStatus::granted);
    EXPECT_TRUE(says("Allowed"));
    program->settings.captureFinderDelete.set(false);
    EXPECT_TRUE(says("The key is turned off in the settings."));
    press("Continue");
    press("Skip");
    EXPECT_TRUE(says(
        "Drop files on the Dock icon, or right-click them and choose Services > Feed to Vexmoor."))
        << "there is a menu entry";
    press("Start Feeding");
    EXPECT_FALSE(walkthrough.comesFirst());
}

TEST_F(WalkthroughTest, ReportsIfNoFileManagerSupportsTheKey) {
    beginWith({"spacefm"});
    walkthrough.show();
    press("Continue");
    press("Skip");
    EXPECT_TRUE(says("No installed file manager supports Ctrl+Backspace."));
}

TEST_F(WalkthroughTest, ShowsTheSkinAndStartsAgainAfterItWasClosed) {
    beginWith({});
    walkthrough.show();
    program->progression.unlockAll();
    const QImage iron = view().grab().toImage();
    program->progression.select(Skin::named("gold"));
    EXPECT_NE(view().grab().toImage(), iron);
    press("Continue");
    EXPECT_TRUE(walkthrough.comesFirst()) << "it is open";
    view().close();
    EXPECT_FALSE(walkthrough.comesFirst()) << "already shown in this run";
    program->progression.select(Skin::iron());
    walkthrough.show();
    EXPECT_EQ(view().page(), Page::welcome);
    view().showMinimized();
    walkthrough.show();
    EXPECT_FALSE(view().isMinimized());
}

} // namespace
} // namespace vexmoor
