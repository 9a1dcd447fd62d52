#pragma once

#include "PixelCanvas.h"
#include "SeededRNG.h"

#include "skins/Skin.h"

namespace vexmoor {

/// One flame of pixels: pointed above, widest near its foot, ragged at the edges.
struct Flame {
    int centre = 17;      ///< column of its foot
    int base = 27;        ///< row it stands on
    double height = 0;    ///< rows
    double halfWidth = 8; ///< the most columns to either side
    double bend = 0;      ///< how far its tip swings out, in columns
    double phase = 0;     ///< of the swing, in radians; let it run with time to make the flame lick

    /// The centre's column in the row that is `rise` rows above the base.
    [[nodiscard]] int columnAt(double rise) const;

    /// Paints it; nothing below half a row. Takes one draw a row, whatever is visible.
    void paint(PixelCanvas& canvas, const Skin& skin, SeededRNG& rng) const;
};

} // namespace vexmoor
