#pragma once

#include "finder/Automation.h"

#include <QCoreApplication>
#include <QString>

#include <vector>

namespace vexmoor {

/// What the user and the session allow. The default means that nothing is missing.
struct Permissions {
    /// Why the key does not work in a file manager.
    struct KeyHint {
        enum class Kind {
            needsRestart, ///< works after its next start
            taken,        ///< the user bound the key to another action there
            menuOnly,     ///< it cannot bind the key and the key cannot be captured
        };
        QString fileManager; ///< its title
        Kind kind = Kind::needsRestart;

        bool operator==(const KeyHint&) const = default;
    };

    /// Whether file managers report the focus. Those started without the session's accessibility
    /// support do not, and so keep the key.
    enum class FocusReports { present, missing, afterRestart };

    bool accessible = true; ///< the accessibility bus answers
    AutomationStatus automation = AutomationStatus::granted;
    bool keyIsPossible = true; ///< by capture or by at least one file manager's binding
    FocusReports focusReports = FocusReports::present;
    std::vector<KeyHint> keyHints;

    bool operator==(const Permissions&) const = default;
};

/// A text about a missing permission, and the button that fixes it.
struct PermissionNotice {
    Q_DECLARE_TR_FUNCTIONS(vexmoor::PermissionNotice)

  public:
    enum class Remedy { none, accessibilitySettings, automation, focusReports };

    QString text;
    QString button; ///< empty if there is no remedy
    Remedy remedy = Remedy::none;

    /// Returns the notices, the most important first. `capturesKey` is the user's setting.
    static std::vector<PermissionNotice> of(const Permissions& permissions, bool capturesKey);

    bool operator==(const PermissionNotice&) const = default;
};

} // namespace vexmoor
