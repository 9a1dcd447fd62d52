#pragma once

#include <QImage>

namespace vexmoor {

/// Returns the icon theme's icon of PDF documents for demonstrations, otherwise that of any
/// document; null without an icon theme. Main thread.
QImage sampleIcon();

} // namespace vexmoor
