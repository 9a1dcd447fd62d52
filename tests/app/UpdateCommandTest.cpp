#include "app/UpdateCommand.h"

#include "desktopbus/FakeService.h"
#include "support/MainLoop.h"
#include "support/PrivateBus.h"

#include <QApplication>
#include <QDBusObjectPath>
#include <QTest>

namespace vexmoor {
namespace {

using test::eventuallyInLoop;

template <typename Window>
Window* shown() {
    for (QWidget* const widget : QApplication::topLevelWidgets())
        if (auto* const window = qobject_cast<Window*>(widget); window && window->isVisible())
            return window;
    return nullptr;
}

struct UpdateCommandTest : testing::Test {
    ~UpdateCommandTest() override {
        QDBusConnection::disconnectFromBus("client");
        QDBusConnection::disconnectFromBus("server");
    }
    QDBusConnection connection(const char* name) const {
        return QDBusConnection::connectToBus(QString::fromStdString(bus.address()), name);
    }

    test::PrivateBus bus;
    Alerts alerts;
    Updater updater{connection("client"), "/usr/bin/vexmoor-desktop"};
    UpdateCommand command{updater, alerts};
};

TEST_F(UpdateCommandTest, ReportsTheResult) {
    command.checkForUpdates();
    EXPECT_TRUE(command.isChecking());
    ASSERT_TRUE(eventuallyInLoop([] { return shown<QMessageBox>() != nullptr; }));
    EXPECT_EQ(shown<QMessageBox>()->text(), "Check for Updates");
    EXPECT_TRUE(shown<QMessageBox>()->informativeText().startsWith("This system has no package"));
    EXPECT_EQ(shown<UpdatePanel>(), nullptr);
    QTest::keyClick(shown<QMessageBox>(), Qt::Key_Escape);
}

TEST_F(UpdateCommandTest, ShowsAPanelUntilTheCheckIsCancelled) {
    const test::FakeService silent(connection("server"), "org.freedesktop.PackageKit",
                                   [](const QDBusMessage&) { return QDBusMessage(); });
    QList<bool> states;
    QObject::connect(&command, &UpdateCommand::checkingChanged, &command,
                     [&](bool isChecking) { states << isChecking; });
    for (int check = 0; check < 2; ++check) {
        command.checkForUpdates();
        ASSERT_TRUE(eventuallyInLoop([] { return shown<UpdatePanel>() != nullptr; }));
        command.checkForUpdates(); // raises the panel
        QTest::keyClick(shown<UpdatePanel>(), Qt::Key_Escape);
        EXPECT_FALSE(command.isChecking());
        EXPECT_EQ(shown<UpdatePanel>(), nullptr);
        EXPECT_EQ(shown<QMessageBox>(), nullptr) << "no result is reported";
    }
    EXPECT_EQ(states, QList<bool>({true, false, true, false}));
}

} // namespace
} // namespace vexmoor
