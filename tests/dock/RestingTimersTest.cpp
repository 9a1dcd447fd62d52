#include "dock/RestingTimers.h"

#include "support/ManualTimer.h"

#include <gtest/gtest.h>

#include <vector>

namespace vexmoor {
namespace {

using test::ManualTimer;

TEST(RestingTimersTest, PauseAndResumeTogether) {
    std::vector<ManualTimer*> made;
    RestingTimers timers([&made] {
        auto timer = std::make_unique<ManualTimer>();
        made.push_back(timer.get());
        return timer;
    });
    const auto running = timers.maker()();
    const auto stopped = timers.maker()();
    const auto stoppedAtRest = timers.maker()();
    auto ended = timers.maker()();
    int fired = 0;
    for (FrameTimer* const timer : {running.get(), stopped.get(), stoppedAtRest.get(), ended.get()})
        timer->start(FrameTimer::Interval(0.125), [&fired] { ++fired; });
    stopped->stop();

    timers.setResting(true);
    for (const ManualTimer* const timer : made)
        EXPECT_FALSE(timer->fire);
    const auto startedAtRest = timers.maker()();
    startedAtRest->start(FrameTimer::Interval(60), [&fired] { fired += 10; });
    EXPECT_FALSE(made.back()->fire);
    stoppedAtRest->stop();
    ended.reset();

    timers.setResting(false);
    EXPECT_FALSE(made[1]->fire);
    EXPECT_FALSE(made[2]->fire);
    ASSERT_TRUE(made[0]->fire);
    EXPECT_DOUBLE_EQ(made[0]->seconds, 0.125);
    made[0]->fire();
    ASSERT_TRUE(made[4]->fire);
    EXPECT_DOUBLE_EQ(made[4]->seconds, 60);
    made[4]->fire();
    EXPECT_EQ(fired, 11);
}

} // namespace
} // namespace vexmoor
