#pragma once

#include "Tile.h"

#include "base/UserDefaults.h"

#include <memory>

namespace vexmoor {

/// An environment variable. "xwayland" shows the tile through XWayland even if the compositor
/// supports layers.
inline constexpr const char* kTileVariable = "VEXMOOR_TILE";

/// True if there is a Wayland compositor. Can be called before the application exists.
bool compositorAnswers();

/// Creates the kind of tile that this session supports. Requires the application; the defaults must
/// outlive the tile. Main thread.
std::unique_ptr<Tile> makeTile(UserDefaults& defaults);

} // namespace vexmoor
