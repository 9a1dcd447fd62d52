#pragma once

#include <QImage>

#include <vector>

namespace vexmoor::arttool {

/// Returns ten 128-pixel file icons, as varied as those in a real folder.
std::vector<QImage> sampleIcons();

} // namespace vexmoor::arttool
