#include "app/FocusReports.h"

#include "desktopbus/FakeService.h"

#include "support/MainLoop.h"
#include "support/PrivateBus.h"

#include <QDBusVariant>

namespace vexmoor {
namespace {

using State = Permissions::FocusReports;

TEST(FocusReportsTest, TurnsSupportOnAndTrustsItOnceTheKeyWorks) {
    const test::PrivateBus bus;
    const QString address = QString::fromStdString(bus.address());
    const auto server = QDBusConnection::connectToBus(address, "focus server");
    const auto client = QDBusConnection::connectToBus(address, "focus client");
    bool refuses = true;
    QVariantList written;
    const test::FakeService service(server, "org.a11y.Bus", [&](const QDBusMessage& call) {
        written = call.arguments();
        return refuses ? call.createErrorReply(QDBusError::AccessDenied, "no") : call.createReply();
    });
    FocusReports reports(client);
    QString reason;
    QObject::connect(&reports, &FocusReports::turningOnFailed,
                     [&reason](const QString& why) { reason = why; });
    EXPECT_EQ(reports.state(), State::present);
    reports.setMissing();
    reports.keyWorked();
    EXPECT_EQ(reports.state(), State::missing) << "the key worked in another file manager";
    reports.turnOn();
    EXPECT_TRUE(test::eventuallyInLoop([&reason] { return reason == "no"; }));
    EXPECT_EQ(reports.state(), State::missing);

    refuses = false;
    reports.turnOn();
    EXPECT_TRUE(test::eventuallyInLoop([&] { return reports.state() == State::afterRestart; }));
    EXPECT_EQ(written.value(0), "org.a11y.Status");
    EXPECT_EQ(written.value(1), "IsEnabled");
    EXPECT_EQ(written.value(2).value<QDBusVariant>().variant(), true);
    reports.setMissing();
    EXPECT_EQ(reports.state(), State::afterRestart);
    reports.keyWorked();
    EXPECT_EQ(reports.state(), State::present);
    QDBusConnection::disconnectFromBus("focus server");
    QDBusConnection::disconnectFromBus("focus client");
}

} // namespace
} // namespace vexmoor
