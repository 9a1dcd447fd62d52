#pragma once

#include "SeededRNG.h"

#include <cstdint>

namespace vexmoor {

/// The flame's height over time while one item burns.
struct BurnCurve {
    static constexpr int kFrames = 36;
    static constexpr double kFullHeight = 24; ///< rows of a flame that may leave the tile
    static constexpr double kTileHeight = 8;  ///< rows of a flame that stays in the tile

    /// Returns a frame's position in the burn, 0 to 1.
    static constexpr double moment(int frame) { return frame / (kFrames - 1.0); }

    /// Returns the random seed of the frame at position t (0 to 1) of the burn with that seed.
    static constexpr std::uint64_t frameSeed(std::uint64_t seed, double t) {
        return SeededRNG::mixed(seed ^ static_cast<std::uint64_t>(t * 1000)).state;
    }

    /// Returns the flame's height in rows at position t. `full` is its full height.
    static double height(double t, double full, std::uint64_t frameSeed);

    /// True while the acid boils.
    static constexpr bool simmers(double t) { return 0.05 < t && t < 0.9; }
};

} // namespace vexmoor
