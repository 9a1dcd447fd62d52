#pragma once

#include "base/Published.h"

namespace vexmoor {

/// True if the user prefers reduced motion; then animations stand still and changes have no
/// transition. False until setReducedMotion() is called. Main thread.
bool reducedMotion();

void setReducedMotion(bool isReduced);

/// Calls the subscriber immediately and after each change.
Subscription subscribeToReducedMotion(const std::function<void(bool)>& subscriber);

} // namespace vexmoor
