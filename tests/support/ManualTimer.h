#pragma once

#include "dock/FrameTimer.h"

// Header only, since not all tests link Qt.

namespace vexmoor::test {

/// A timer that the test fires.
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
