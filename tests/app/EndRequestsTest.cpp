#include "app/EndRequests.h"

#include "support/MainLoop.h"

#include <QTimer>

#include <csignal>

namespace vexmoor::test {
namespace {

TEST(EndRequestsTest, ReportsSignalsAndQuitEventsWithoutLeavingTheEventLoop) {
    constexpr int kOwnStatus = 7;
    const EndRequests ends;
    int requests = 0;
    QObject::connect(&ends, &EndRequests::endRequested, [&] {
        constexpr int kSignals[] = {SIGTERM, SIGINT, SIGHUP};
        constexpr int kQuitEvents = 2;
        if (const int next = ++requests - kQuitEvents; next == std::ssize(kSignals))
            QCoreApplication::exit(kOwnStatus);
        else if (next >= 0)
            std::raise(kSignals[next]);
    });
    QTimer::singleShot(0, [] {
        QCoreApplication::quit();
        QEvent fromSessionManager(QEvent::Quit);
        QCoreApplication::sendEvent(QCoreApplication::instance(), &fromSessionManager);
    });
    EXPECT_EQ(QCoreApplication::exec(), kOwnStatus);
}

} // namespace
} // namespace vexmoor::test
