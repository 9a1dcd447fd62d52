#pragma once

#include "Tile.h"

#include "base/UserDefaults.h"

#include <memory>

namespace vexmoor {

/// The tile in the way in which this session can show it. Needs the application; the defaults must
/// outlive it. Main thread.
std::unique_ptr<Tile> makeTile(UserDefaults& defaults);

} // namespace vexmoor
