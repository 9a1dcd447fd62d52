#pragma once

#include "integration/ManagerIntegration.h"
#include "ui/Onboarding.h"
#include "ui/Permissions.h"

#include <optional>
#include <vector>

namespace vexmoor {

/// How Ctrl+Backspace works in this session and in the installed file managers.
struct KeyOutlook {
    bool canCapture = false;                     ///< from the keyboard, in all file managers
    std::optional<std::vector<KeyState>> states; ///< nullopt until they have been read

    [[nodiscard]] Onboarding::KeyWay way() const;

    /// Returns where the key does not work although it is on, and why.
    [[nodiscard]] std::vector<Permissions::KeyHint> hints() const;
};

} // namespace vexmoor
