#pragma once

#include "PixelCanvas.h"

#include "skins/Skin.h"

namespace vexmoor {

/// The effect of the fire on the pot: the acid churns, its light falls on the rim, and the pot's
/// own glowing marks brighten.
struct PotGlow {
    double strength = 0; ///< 0 to 1
    int step = 0;        ///< animation step of the churning acid

    /// Lights a frame-sized canvas with the pot in its standard position.
    void paint(PixelCanvas& pot, const Skin& skin) const;
};

} // namespace vexmoor
