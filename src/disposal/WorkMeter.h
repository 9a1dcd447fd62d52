#pragma once

#include <atomic>
#include <cstdint>

namespace vexmoor {

/// Counts what a long operation has done so far and lets another thread, or a signal handler, ask
/// it to stop. Several operations may count on the same meter; it is brought up to date every few
/// dozen entries and at the end.
struct WorkMeter {
    std::atomic<std::int64_t> entries{0}; ///< measured
    std::atomic<std::int64_t> bytes{0};   ///< of those
    std::atomic<std::int64_t> removed{0};
    std::atomic<bool> stop{false};

    static_assert(std::atomic<bool>::is_always_lock_free);
};

} // namespace vexmoor
