#include "app/QuitEvents.h"

#include "support/MainLoop.h"

#include <QTimer>

namespace vexmoor::test {
namespace {

TEST(QuitEventsTest, LeaveTheEventLoopToItsOwner) {
    constexpr int kOwnStatus = 7;
    const QuitEvents events;
    int requests = 0;
    QObject::connect(&events, &QuitEvents::endRequested, [&] {
        if (++requests == 2)
            QCoreApplication::exit(kOwnStatus);
    });
    QTimer::singleShot(0, [] {
        QCoreApplication::quit();
        QEvent fromSessionManager(QEvent::Quit);
        QCoreApplication::sendEvent(QCoreApplication::instance(), &fromSessionManager);
    });
    EXPECT_EQ(QCoreApplication::exec(), kOwnStatus);
    EXPECT_EQ(requests, 2);
}

} // namespace
} // namespace vexmoor::test
