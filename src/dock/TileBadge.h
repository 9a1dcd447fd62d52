#pragma once

#include "art/PixelCanvas.h"

namespace vexmoor {

/// The skull on the tile that says that what is fed now is gone for good. Its corner is the tile's
/// upper right one.
const PixelCanvas& tileBadge();

} // namespace vexmoor
