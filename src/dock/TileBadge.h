#pragma once

#include "art/PixelCanvas.h"

namespace vexmoor {

/// Returns the skull that marks the tile in dissolve mode. It is drawn in the tile's upper right
/// corner.
const PixelCanvas& tileBadge();

} // namespace vexmoor
