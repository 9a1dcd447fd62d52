#pragma once

#include "base/Published.h"

namespace vexmoor {

/// Whether the user asked the desktop for less motion: then pictures stand still and changes are
/// made without a transition. False until setReducedMotion() is called. Main thread.
bool reducedMotion();

void setReducedMotion(bool isReduced);

/// Calls the subscriber at once and after every change.
Subscription subscribeToReducedMotion(const std::function<void(bool)>& subscriber);

} // namespace vexmoor
