#include "desktopbus/ShutdownDelay.h"

#include "FakeService.h"
#include "support/ConnectedBus.h"
#include "support/MainLoop.h"

#include <QDBusUnixFileDescriptor>

#include <fcntl.h>
#include <unistd.h>

namespace vexmoor::test {

namespace {

TEST(ShutdownDelay, DelaysAShutdownDuringWorkAndReportsIt) {
    ConnectedBus bus;
    int ends[2] = {-1, -1};
    ASSERT_EQ(::pipe(ends), 0);
    FakeService login(bus.connect("login"), QStringLiteral("org.freedesktop.login1"),
                      [&](const QDBusMessage& call) {
                          auto answer = call.createReply();
                          if (call.member() == QStringLiteral("Inhibit")) {
                              answer << QVariant::fromValue(QDBusUnixFileDescriptor(ends[1]));
                              ::close(ends[1]); // the message contains a duplicate
                          }
                          return answer;
                      });
    const auto isReleased = [&] {
        char byte = 0;
        return ::read(ends[0], &byte, 1) == 0; // end of file: no writer is left
    };
    ASSERT_EQ(::fcntl(ends[0], F_SETFL, O_NONBLOCK), 0);

    ShutdownDelay delay(bus.connect("desktop"));
    int begun = 0;
    QObject::connect(&delay, &ShutdownDelay::shutdownBegun, [&] { ++begun; });
    delay.setWorking(true);
    ASSERT_TRUE(eventuallyInLoop([&] { return login.calls.contains(QStringLiteral("Inhibit")); }));
    login.emitSignal(QStringLiteral("/org/freedesktop/login1"),
                     QStringLiteral("org.freedesktop.login1.Manager"),
                     QStringLiteral("PrepareForShutdown"), {true});
    ASSERT_TRUE(eventuallyInLoop([&] { return begun == 1; }));
    EXPECT_FALSE(isReleased());
    delay.setWorking(false);
    EXPECT_TRUE(eventuallyInLoop(isReleased));
    ::close(ends[0]);
}

} // namespace

} // namespace vexmoor::test
