#include "dock/AccessibilityBus.h"

#include "support/BackgroundProcess.h"
#include "support/Command.h"
#include "support/TemporaryDirectory.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QTimer>

#include <gtest/gtest.h>

#include <filesystem>

namespace vexmoor {
namespace {

using namespace test;

bool eventually(const std::function<bool()>& condition) {
    QTimer wakeUp;
    wakeUp.start(5);
    for (const QDeadlineTimer deadline(10000); !condition();) {
        if (deadline.hasExpired())
            return false;
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    return true;
}

/// The service as the session has it, answering what the test says.
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
    TemporaryDirectory folder;
    std::unique_ptr<BackgroundProcess> daemon;

    void SetUp() override {
        if (!Command::exists("dbus-daemon"))
            GTEST_SKIP() << "dbus-daemon is not installed";
        const std::string socket = folder / "bus";
        // A session without activation, so that nothing of this machine answers.
        folder.write("bus.conf", "<busconfig><type>session</type><listen>unix:path=" + socket +
                                     "</listen><policy context=\"default\"><allow user=\"*\"/>"
                                     "<allow send_destination=\"*\" eavesdrop=\"true\"/>"
                                     "<allow eavesdrop=\"true\"/><allow own=\"*\"/>"
                                     "</policy></busconfig>");
        daemon = std::make_unique<BackgroundProcess>(std::vector<std::string>{
            "dbus-daemon", "--nofork", "--config-file=" + (folder / "bus.conf").string()});
        ASSERT_TRUE(eventually(
            [&] { return std::filesystem::exists(socket) && connect("first").isConnected(); }));
    }

    /// Qt keeps connections by name, beyond a test's end.
    [[nodiscard]] QDBusConnection connect(const QString& as) const {
        const auto address = QString::fromStdString("unix:path=" + (folder / "bus").string());
        return QDBusConnection::connectToBus(address, as + address);
    }
};

TEST_F(AccessibilityBusTest, AnswersWhileTheServiceGivesAnAddress) {
    QDBusConnection ours = connect("ours");
    QDBusConnection theirs = connect("theirs");
    ASSERT_TRUE(ours.isConnected() && theirs.isConnected());
    AccessibilityBus bus(ours);
    EXPECT_FALSE(bus.askNow()) << "nobody is there";

    FakeService service;
    ASSERT_TRUE(theirs.registerObject("/org/a11y/bus", &service, QDBusConnection::ExportAllSlots));
    int changes = 0;
    QObject::connect(&bus, &AccessibilityBus::answersChanged, [&] { ++changes; });
    ASSERT_TRUE(theirs.registerService("org.a11y.Bus"));
    EXPECT_TRUE(eventually([&] { return bus.answers(); })) << "it comes later";

    ASSERT_TRUE(theirs.unregisterService("org.a11y.Bus"));
    EXPECT_TRUE(eventually([&] { return !bus.answers(); })) << "it goes";
    EXPECT_EQ(changes, 2);

    service.address.clear();
    ASSERT_TRUE(theirs.registerService("org.a11y.Bus"));
    AccessibilityBus another(ours);
    EXPECT_FALSE(another.answers()) << "not before it was heard";
}

TEST_F(AccessibilityBusTest, IsNotThereWithoutASession) {
    AccessibilityBus bus(QDBusConnection(QStringLiteral("never connected")));
    EXPECT_FALSE(bus.askNow());
    EXPECT_FALSE(bus.answers());
}

} // namespace
} // namespace vexmoor

#include "AccessibilityBusTest.moc"
