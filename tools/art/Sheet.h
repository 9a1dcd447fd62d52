#pragma once

#include <QColor>
#include <QImage>

#include <vector>

namespace vexmoor::arttool {

/// Pictures of one size in rows of `columns`, once for each ground, one below the other.
QImage sheetOf(const std::vector<QImage>& pictures, int columns,
               const std::vector<QColor>& grounds);

/// A window's ground in light and in dark mode.
std::vector<QColor> windowGrounds();

} // namespace vexmoor::arttool
