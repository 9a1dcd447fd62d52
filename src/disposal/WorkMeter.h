#pragma once

#include <atomic>
#include <cstdint>

namespace vexmoor {

/// Counts the progress of a long operation, and lets another thread or a signal handler stop it.
/// Several operations may share a meter; it is updated every few dozen entries and at the end.
struct WorkMeter {
    std::atomic<std::int64_t> entries{0}; ///< number of measured entries
    std::atomic<std::int64_t> bytes{0};   ///< bytes of the measured entries
    std::atomic<std::int64_t> removed{0};
    std::atomic<bool> stop{false};

    static_assert(std::atomic<bool>::is_always_lock_free);
};

} // namespace vexmoor
