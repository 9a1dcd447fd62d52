#pragma once

#include "SeededRNG.h"

#include <cstdint>

namespace vexmoor {

/// How a flame rises, flickers and sinks while one item burns.
struct BurnCurve {
    static constexpr int kFrames = 36;
    static constexpr double kFullHeight = 24; ///< of a flame that may leave the tile, in rows
    static constexpr double kTileHeight = 8;  ///< of one that stays in it

    /// How far through the burn a frame is, 0 to 1.
    static constexpr double moment(int frame) { return frame / (kFrames - 1.0); }

    /// The random state of the frame at t (0 to 1) in the burn of that seed.
    static constexpr std::uint64_t frameSeed(std::uint64_t seed, double t) {
        return SeededRNG::mixed(seed ^ static_cast<std::uint64_t>(t * 1000)).state;
    }

    /// The flame's height in rows at t, given its full height.
    static double height(double t, double full, std::uint64_t frameSeed);

    /// Whether the acid boils at t.
    static constexpr bool simmers(double t) { return 0.05 < t && t < 0.9; }
};

} // namespace vexmoor
