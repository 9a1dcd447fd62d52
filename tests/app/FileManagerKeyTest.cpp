#include "WiredParts.h"

#include <gmock/gmock.h>

namespace vexmoor {
namespace {

using namespace test;
using testing::Contains;

using FileManagerKeyTest = WiredParts;

TEST_F(FileManagerKeyTest, ReportsFailures) {
    home.write(".config/Thunar", "a file where a folder should be");
    key.automation().set(AutomationStatus::granted);
    beginWith({"thunar"});
    EXPECT_THAT(around.events, Contains("notify The key of Thunar couldn't be changed"));

    const FakeService service(connection("services"), "org.a11y.Bus", [](const QDBusMessage& call) {
        return call.createErrorReply(QDBusError::AccessDenied, "no");
    });
    key.focusReports().turnOn();
    EXPECT_TRUE(eventuallyInLoop([this] {
        return testing::Value(around.events,
                              Contains("notify Accessibility support couldn't be turned on"));
    }));

    key.feedSelection();
    EXPECT_EQ(around.events.back(), "beep");
}

TEST_F(FileManagerKeyTest, InstallsTheKeyAccordingToSettingAndConsent) {
    const auto becomes = [this](AcceleratorStatus status) {
        return eventuallyInLoop(
            [&] { return key.outlook().states.value().front().status == status; });
    };
    beginWith({"nautilus"});
    EXPECT_TRUE(becomes(AcceleratorStatus::notInstalled)) << "the user has not been asked yet";
    key.automation().set(AutomationStatus::granted);
    EXPECT_TRUE(becomes(AcceleratorStatus::installed));
    EXPECT_TRUE(key.hasMenuEntry());
    program->settings.captureFinderDelete.set(false);
    EXPECT_TRUE(becomes(AcceleratorStatus::notInstalled));
    program->settings.captureFinderDelete.set(true);
    EXPECT_TRUE(becomes(AcceleratorStatus::installed));
    key.automation().set(AutomationStatus::denied);
    EXPECT_TRUE(becomes(AcceleratorStatus::notInstalled));
}

} // namespace
} // namespace vexmoor
