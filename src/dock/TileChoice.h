#pragma once

#include "Tile.h"

#include "base/UserDefaults.h"

#include <memory>

namespace vexmoor {

/// An environment variable: "xwayland" has the tile shown through XWayland where the compositor
/// could show it itself.
inline constexpr const char* kTileVariable = "VEXMOOR_TILE";

/// Whether there is a Wayland compositor; asked before there is an application.
bool compositorAnswers();

/// The tile in the way in which this session can show it. Needs the application; the defaults must
/// outlive it. Main thread.
std::unique_ptr<Tile> makeTile(UserDefaults& defaults);

} // namespace vexmoor
