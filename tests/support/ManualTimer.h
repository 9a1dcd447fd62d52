#pragma once

#include "dock/FrameTimer.h"

// Header only, since other tests have no Qt.

namespace vexmoor::test {

/// A timer that fires when the test does.
struct ManualTimer : FrameTimer {
    std::function<void()> fire;
    double seconds = 0;
    void start(Interval interval, std::function<void()> callback) override {
        seconds = interval.count();
        fire = std::move(callback);
    }
    void stop() override { fire = nullptr; }
};

} // namespace vexmoor::test
