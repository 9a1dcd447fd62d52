#pragma once

#include <algorithm>

namespace vexmoor {

/// The stats window's contents are one column in its middle, with this many points at its sides.
inline constexpr int kColumnMargin = 20;
inline constexpr int kWidestColumn = 560;

/// Points on either side of the column in a widget of that width.
inline int columnInset(int width) {
    return std::max(kColumnMargin, (width - kWidestColumn) / 2);
}

} // namespace vexmoor
