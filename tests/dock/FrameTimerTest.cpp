#include "dock/FrameTimer.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

namespace vexmoor {
namespace {

TEST(FrameTimerTest, FiresUntilStoppedAndCanBeRestartedWhileFiring) {
    int count = 1;
    char name[] = "timer";
    char* arguments[] = {name, nullptr};
    QCoreApplication application(count, arguments);
    QtFrameTimer timer;
    QtFrameTimer last;
    int slow = 0;
    int fast = 0;
    int after = 0;
    timer.start(FrameTimer::Interval(0.002), [&] {
        if (++slow < 3)
            return;
        timer.start(FrameTimer::Interval(0.0001), [&] {
            if (++fast < 20)
                return;
            timer.stop();
            last.start(FrameTimer::Interval(0.01), [&] {
                if (++after == 2)
                    QCoreApplication::quit();
            });
        });
    });
    QCoreApplication::exec();
    EXPECT_EQ(slow, 3);
    EXPECT_EQ(fast, 20) << "nothing fires after stop()";
    EXPECT_EQ(after, 2);
}

} // namespace
} // namespace vexmoor
