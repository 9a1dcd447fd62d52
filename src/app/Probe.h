#pragma once

#include "dock/DeskRect.h"

#include <QString>

#include <optional>
#include <vector>

namespace vexmoor {

/// Returns the diagnostic's three lines: whether the accessibility service answers, the tile's
/// rectangle ("nil" if it was not found), the screens. Rectangles are x, y, width, height in
/// points, from the bottom-left corner of the primary screen.
QString probeText(bool accessible, const std::optional<DeskRect>& tile,
                  const std::vector<DeskRect>& screens);

} // namespace vexmoor
