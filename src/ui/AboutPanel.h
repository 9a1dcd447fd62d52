#pragma once

class QWidget;

namespace vexmoor {

/// Shows what this program is, and goes on. One panel at a time: a second call brings it to the
/// front. \return the panel. Main thread.
QWidget& showAbout(QWidget* parent);

} // namespace vexmoor
