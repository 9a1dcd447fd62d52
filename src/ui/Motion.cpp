#include "Motion.h"

namespace vexmoor {
namespace {

Published<bool>& preference() {
    static Published<bool> isReduced{false};
    return isReduced;
}

} // namespace

bool reducedMotion() {
    return preference().get();
}

void setReducedMotion(bool isReduced) {
    if (preference().get() != isReduced)
        preference().set(isReduced);
}

Subscription subscribeToReducedMotion(const std::function<void(bool)>& subscriber) {
    return preference().subscribe(subscriber);
}

} // namespace vexmoor
