#pragma once

#include <QImage>

namespace vexmoor {

/// The icon theme's picture of a PDF document, for demonstrations; of any document if it has none;
/// null without an icon theme. Main thread.
QImage sampleIcon();

} // namespace vexmoor
