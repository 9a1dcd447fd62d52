#pragma once

#include "PixelCanvas.h"

#include "skins/Skin.h"

namespace vexmoor {

/// What the fire does to the pot below it: the acid churns, its light lies on the rim, and the
/// pot's own glowing marks brighten.
struct PotGlow {
    double strength = 0; ///< 0 to 1
    int step = 0;        ///< moves the churning acid on

    /// Lights a frame-sized canvas with the pot at its place.
    void paint(PixelCanvas& pot, const Skin& skin) const;
};

} // namespace vexmoor
