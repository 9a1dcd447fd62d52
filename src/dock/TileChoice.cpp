#include "TileChoice.h"

#include "WindowTile.h"
#include "XwaylandTile.h"

namespace vexmoor {

std::unique_ptr<Tile> makeTile(UserDefaults& defaults) {
    return std::make_unique<WindowTile>(defaults, tileHandling(DisplayFacts::ofSession()));
}

} // namespace vexmoor
