#pragma once

#include <cstdint>

namespace vexmoor {

/// The random generator of all animations: 64-bit xorshift (13, 7, 17). The same state gives the
/// same numbers on every machine. A state of 0 stays 0.
struct SeededRNG {
    static constexpr std::uint64_t kMixer = 0x9E3779B97F4A7C15;

    std::uint64_t state = 1;

    constexpr std::uint64_t next() {
        state ^= state << 13;
        state ^= state >> 7;
        state ^= state << 17;
        return state;
    }

    /// Returns a uniformly distributed number in [0, 1).
    constexpr double uniform() { return static_cast<double>(next() >> 11) * 0x1p-53; }

    /// Returns a separate generator for a part of the picture.
    static constexpr SeededRNG mixed(std::uint64_t seed) { return {(seed * kMixer) | 1}; }

    /// Returns position-dependent noise in [0, 1) without changing a generator's state.
    static constexpr double noise(std::uint64_t seed, int x, int y) {
        return mixed(seed + static_cast<std::uint64_t>(x) * 7919 +
                     static_cast<std::uint64_t>(y) * 104729)
            .uniform();
    }
};

} // namespace vexmoor
