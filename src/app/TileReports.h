#pragma once

namespace vexmoor {

class Dialogs;
class Tile;

/// Connects the tile's failures to the dialogs: drops that cannot be fed, and the loss of the tile.
/// The dialogs must outlive the tile. Main thread.
void reportFailuresOf(Tile& tile, Dialogs& dialogs);

} // namespace vexmoor
