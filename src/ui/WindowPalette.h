#pragma once

#include <QPalette>

#include <optional>

namespace vexmoor {

/// Calm light or dark colours for all windows, for a desktop whose theme Qt does not follow.
QPalette windowPalette(bool dark);

/// Makes all windows dark or light. Where the platform's own palette is so already, it is left; so
/// it is with nullopt, that is, without a choice of the user's. Main thread.
void useWindowPalette(std::optional<bool> dark);

} // namespace vexmoor
