#include "KeyOutlook.h"

#include <algorithm>

namespace vexmoor {
namespace {

using Kind = Permissions::KeyHint::Kind;

std::optional<Kind> hintOf(const KeyState& state, bool canCapture) {
    switch (state.status) {
    case AcceleratorStatus::taken:
        return Kind::taken;
    case AcceleratorStatus::unsupported:
        return canCapture ? std::nullopt : std::optional(Kind::menuOnly);
    case AcceleratorStatus::installed:
        // Until the restart the key is captured, if possible.
        return state.waitsForRestart && !canCapture ? std::optional(Kind::needsRestart)
                                                    : std::nullopt;
    case AcceleratorStatus::notInstalled:
    case AcceleratorStatus::otherKey:
        break;
    }
    return std::nullopt;
}

} // namespace

Onboarding::KeyWay KeyOutlook::way() const {
    using Way = Onboarding::KeyWay;
    if (canCapture)
        return Way::captured;
    if (!states)
        return Way::available;
    const auto isAny = [this](const auto& test) { return std::ranges::any_of(*states, test); };
    if (isAny([](const KeyState& state) { return state.status == AcceleratorStatus::installed; }))
        return Way::bound;
    if (isAny([](const KeyState& state) {
            return state.status == AcceleratorStatus::notInstalled && !state.error;
        }))
        return Way::available;
    return isAny(
               [](const KeyState& state) { return state.status != AcceleratorStatus::unsupported; })
               ? Way::blocked
               : Way::none;
}

std::vector<Permissions::KeyHint> KeyOutlook::hints() const {
    std::vector<Permissions::KeyHint> hints;
    if (!states)
        return hints;
    for (const KeyState& state : *states)
        if (const auto kind = hintOf(state, canCapture))
            hints.push_back({QString::fromUtf8(state.manager->title), *kind});
    return hints;
}

} // namespace vexmoor
