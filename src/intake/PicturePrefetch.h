#pragma once

#include "intake/Ports.h"

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace vexmoor {

/// Pictures by the paths of their items.
using ItemPictures = std::map<std::string, PicturePointer>;

/// Requests a picture of each item. Calls `done` with the available ones when all requests are
/// answered, possibly before it returns. Main thread.
void prefetchPictures(Thumbnails& thumbnails, const std::vector<Path>& items,
                      std::function<void(ItemPictures)> done);

} // namespace vexmoor
