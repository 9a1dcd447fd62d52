#pragma once

#include "PixelCanvas.h"
#include "SeededRNG.h"

#include "skins/Skin.h"

namespace vexmoor {

/// A pixel flame with a pointed tip, widest near its foot, with ragged edges.
struct Flame {
    int centre = 17;      ///< column of its foot
    int base = 27;        ///< row of its foot
    double height = 0;    ///< rows
    double halfWidth = 8; ///< maximum columns to either side
    double bend = 0;      ///< horizontal swing of the tip, in columns
    double phase = 0;     ///< of the swing, in radians; advance it with time to animate the flame

    /// Returns the centre column `rise` rows above the base.
    [[nodiscard]] int columnAt(double rise) const;

    /// Paints the flame if it is at least half a row high. Takes one random number per row, visible
    /// or not.
    void paint(PixelCanvas& canvas, const Skin& skin, SeededRNG& rng) const;
};

} // namespace vexmoor
