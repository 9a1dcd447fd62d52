#pragma once

#include <atomic>
#include <cstdint>
#include <limits>

namespace vexmoor {

/// Returns a + b, limited to the type's maximum instead of overflowing. `b` must not be negative.
inline std::int64_t saturatedSum(std::int64_t a, std::int64_t b) {
    std::int64_t sum = 0;
    return __builtin_add_overflow(a, b, &sum) ? std::numeric_limits<std::int64_t>::max() : sum;
}

/// Same for a total that several threads add to.
inline void addSaturated(std::atomic<std::int64_t>& total, std::int64_t more) {
    auto before = total.load(std::memory_order_relaxed);
    while (!total.compare_exchange_weak(before, saturatedSum(before, more),
                                        std::memory_order_relaxed)) {
    }
}

} // namespace vexmoor
