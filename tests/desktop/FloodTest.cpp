#include "DesktopTest.h"

#include <QByteArrayList>
#include <QDBusConnectionInterface>
#include <QDBusMetaType>

#include <fstream>

namespace vexmoor {
namespace {

using namespace test;

/// Returns the process's peak memory use in mebibytes.
int peakMemory(unsigned process) {
    std::ifstream status("/proc/" + std::to_string(process) + "/status");
    const std::string key = "VmHWM:";
    for (std::string word; status >> word;)
        if (int kibibytes = 0; word == key && status >> kibibytes)
            return kibibytes / 1024;
    ADD_FAILURE() << "the process does not run";
    return 0;
}

QVariantList feeding(const Path& item) {
    return {QVariant::fromValue(QByteArrayList{item.c_str()}), "bin", false,
            QVariant::fromValue(QList<qulonglong>())};
}

TEST_F(DesktopTest, UsesLittleMemoryForAFloodOfCallsWithoutReceivers) {
    constexpr int kCallers = 20;
    constexpr int kCallsEach = 5000;
    constexpr int kMostMebibytes = 128;
    const BusObject commands{Cauldron::kName, "/org/vexmoor/Vexmoor", "org.vexmoor.Commands1"};
    openSession();
    const auto program =
        session->start({"sh", "-c", "exec \"$0\" --background 2>/dev/null",
                        VEXMOOR_DESKTOP_PROGRAM}); // its output contains each failure
    ASSERT_TRUE(eventually([&] { return session->hasService(Cauldron::kName); }));
    const auto progress = QDBusMessage::createMethodCall(commands.service, commands.path,
                                                         commands.interface, "Progress");
    ASSERT_TRUE(eventually(
        [&] { return session->bus().call(progress).type() == QDBusMessage::ReplyMessage; }));
    qDBusRegisterMetaType<QByteArrayList>();
    const auto process = session->bus().interface()->servicePid(Cauldron::kName).value();
    const int before = peakMemory(process);
    for (int caller = 0; caller < kCallers; ++caller) {
        const QString name = QStringLiteral("caller %1").arg(caller);
        {
            const auto bus = QDBusConnection::connectToBus(session->bus().name(), name);
            auto message = QDBusMessage::createMethodCall(commands.service, commands.path,
                                                          commands.interface, "Feed");
            for (int i = 0; i < kCallsEach; ++i) {
                const auto item = session->home() / ("gone " + std::to_string(i));
                message.setArguments(feeding(item));
                bus.send(message);
            }
            EXPECT_TRUE(bus.interface()->serviceOwner(commands.service).isValid())
                << "all calls have been sent";
        }
        QDBusConnection::disconnectFromBus(name);
    }
    const Path item = session->write("item", "x");
    session->call(commands, "Feed", feeding(item)); // arrives after all of them
    EXPECT_FALSE(std::filesystem::exists(item));
    EXPECT_LT(peakMemory(process) - before, kMostMebibytes);
}

} // namespace
} // namespace vexmoor
