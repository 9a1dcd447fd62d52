#pragma once

#include <QColor>
#include <QImage>

#include <vector>

namespace vexmoor::arttool {

/// Arranges pictures of one size in rows of `columns`, once per background, below each other.
QImage sheetOf(const std::vector<QImage>& pictures, int columns,
               const std::vector<QColor>& grounds);

/// The window backgrounds in light and dark mode.
std::vector<QColor> windowGrounds();

} // namespace vexmoor::arttool
