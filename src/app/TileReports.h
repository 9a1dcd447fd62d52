#pragma once

namespace vexmoor {

class Dialogs;
class Tile;

/// Reports what is dropped on the tile and cannot be fed, and the loss of the tile. The dialogs
/// must outlive the tile. Main thread.
void reportFailuresOf(Tile& tile, Dialogs& dialogs);

} // namespace vexmoor
