#pragma once

namespace vexmoor {

class Alerts;

/// Opens the desktop's accessibility settings. Says in an alert that there are none, if no program
/// for them is installed.
void openAccessibilitySettings(Alerts& alerts);

} // namespace vexmoor
