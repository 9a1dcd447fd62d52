#pragma once

#include <QPalette>

#include <optional>

namespace vexmoor {

/// Returns a light or dark palette for all windows, for desktops whose theme Qt does not follow.
QPalette windowPalette(bool dark);

/// Makes all windows dark or light. Keeps the platform's palette if it already matches or if `dark`
/// is nullopt (no preference). Main thread.
void useWindowPalette(std::optional<bool> dark);

} // namespace vexmoor
