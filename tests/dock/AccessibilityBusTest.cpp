#include "dock/AccessibilityBus.h"

#include "support/Command.h"
#include "support/ConnectedBus.h"
#include "support/MainLoop.h"

#include <gtest/gtest.h>

namespace vexmoor {
namespace {

using namespace test;

/// The session's service, with answers set by the test.
class FakeService : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.a11y.Bus")

  public:
    QString address = QStringLiteral("unix:path=/run/at-spi");

  public slots:
    [[nodiscard]] QString GetAddress() const { return address; }
};

struct AccessibilityBusTest : testing::Test {
    int count = 1;
    char name[4] = "bus";
    char* arguments[2] = {name, nullptr};
    QCoreApplication application{count, arguments};
    std::unique_ptr<ConnectedBus> session; ///< isolated from the machine's services

    void SetUp() override {
        if (!Command::exists("dbus-daemon"))
            GTEST_SKIP() << "dbus-daemon is not installed";
        session = std::make_unique<ConnectedBus>();
    }
};

TEST_F(AccessibilityBusTest, IsPresentWhileTheServiceReturnsAnAddress) {
    QDBusConnection ours = session->connect("ours");
    QDBusConnection theirs = session->connect("theirs");
    ASSERT_TRUE(ours.isConnected() && theirs.isConnected());
    AccessibilityBus bus(ours);
    EXPECT_FALSE(bus.askNow()) << "there is no service";

    FakeService service;
    ASSERT_TRUE(theirs.registerObject("/org/a11y/bus", &service, QDBusConnection::ExportAllSlots));
    int changes = 0;
    QObject::connect(&bus, &AccessibilityBus::answersChanged, [&] { ++changes; });
    ASSERT_TRUE(theirs.registerService("org.a11y.Bus"));
    EXPECT_TRUE(eventuallyInLoop([&] { return bus.answers(); })) << "it starts later";

    ASSERT_TRUE(theirs.unregisterService("org.a11y.Bus"));
    EXPECT_TRUE(eventuallyInLoop([&] { return !bus.answers(); })) << "it exits";
    EXPECT_EQ(changes, 2);

    service.address.clear();
    ASSERT_TRUE(theirs.registerService("org.a11y.Bus"));
    AccessibilityBus another(ours);
    EXPECT_FALSE(another.answers()) << "not before the reply";
}

TEST_F(AccessibilityBusTest, IsMissingWithoutASessionBus) {
    AccessibilityBus bus(QDBusConnection(QStringLiteral("never connected")));
    EXPECT_FALSE(bus.askNow());
    EXPECT_FALSE(bus.answers());
}

} // namespace
} // namespace vexmoor

#include "AccessibilityBusTest.moc"
