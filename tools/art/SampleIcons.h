#pragma once

#include <QImage>

#include <vector>

namespace vexmoor::arttool {

/// Ten file icons of 128 pixels, as different from one another as those in a real folder.
std::vector<QImage> sampleIcons();

} // namespace vexmoor::arttool
