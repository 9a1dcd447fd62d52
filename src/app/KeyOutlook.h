#pragma once

#include "integration/ManagerIntegration.h"
#include "ui/Onboarding.h"
#include "ui/Permissions.h"

#include <optional>
#include <vector>

namespace vexmoor {

/// What the session and the file managers that are installed make of Ctrl+Backspace. A value.
struct KeyOutlook {
    bool canCapture = false;                     ///< from the keyboard, in every file manager
    std::optional<std::vector<KeyState>> states; ///< nothing until the file managers were looked at

    [[nodiscard]] Onboarding::KeyWay way() const;

    /// Where the key does not work although it is on, and why.
    [[nodiscard]] std::vector<Permissions::KeyHint> hints() const;
};

} // namespace vexmoor
