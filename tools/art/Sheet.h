#pragma once

#include <QImage>

#include <vector>

namespace vexmoor::arttool {

/// Pictures of one size in rows of `columns`, once on a light ground and below it on a dark one.
QImage sheetOf(const std::vector<QImage>& pictures, int columns);

} // namespace vexmoor::arttool
