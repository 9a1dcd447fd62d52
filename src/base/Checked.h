#pragma once

#include <cstdint>
#include <cstdlib>

namespace vexmoor {

/// a + b; an overflow is a fatal error, never a wrap.
inline std::int64_t checkedSum(std::int64_t a, std::int64_t b) {
    std::int64_t sum = 0;
    if (__builtin_add_overflow(a, b, &sum))
        std::abort();
    return sum;
}

} // namespace vexmoor
