#pragma once

#include "finder/Automation.h"

#include <QCoreApplication>
#include <QString>

#include <vector>

namespace vexmoor {

/// What the user and the session let the program do. A plain value; what a fresh one says is that
/// nothing is missing.
struct Permissions {
    /// Why the key does not work in one file manager.
    struct KeyHint {
        enum class Kind {
            needsRestart, ///< it takes the key at its next start
            taken,        ///< the user bound the key to something else there
            menuOnly,     ///< it cannot bind the key, and nothing can capture it
        };
        QString fileManager; ///< its title
        Kind kind = Kind::needsRestart;

        bool operator==(const KeyHint&) const = default;
    };

    /// Whether file managers say where the focus is: those that were started without the session's
    /// accessibility support do not, and keep the key.
    enum class FocusReports { present, missing, afterRestart };

    bool accessible = true; ///< the accessibility bus answers
    AutomationStatus automation = AutomationStatus::granted;
    bool keyIsPossible = true; ///< by capture, or in a file manager of its own
    FocusReports focusReports = FocusReports::present;
    std::vector<KeyHint> keyHints;

    bool operator==(const Permissions&) const = default;
};

/// What is missing, in words, and the button that mends it.
struct PermissionNotice {
    Q_DECLARE_TR_FUNCTIONS(vexmoor::PermissionNotice)

  public:
    enum class Remedy { none, accessibilitySettings, automation, focusReports };

    QString text;
    QString button; ///< empty without a remedy
    Remedy remedy = Remedy::none;

    /// The most important first. `capturesKey` is the setting of the key.
    static std::vector<PermissionNotice> of(const Permissions& permissions, bool capturesKey);

    bool operator==(const PermissionNotice&) const = default;
};

} // namespace vexmoor
