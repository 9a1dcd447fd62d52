#pragma once

#include <algorithm>

namespace vexmoor {

/// The contents of the stats window form a centred column with margins of this many points.
inline constexpr int kColumnMargin = 20;
inline constexpr int kWidestColumn = 560;

/// Returns the margin on each side of the column in a widget of that width.
inline int columnInset(int width) {
    return std::max(kColumnMargin, (width - kWidestColumn) / 2);
}

} // namespace vexmoor
