#pragma once

class QWidget;

namespace vexmoor {

/// Shows the about panel without blocking. There is at most one; a second call raises it. Returns
/// the panel. Main thread.
QWidget& showAbout(QWidget* parent);

} // namespace vexmoor
