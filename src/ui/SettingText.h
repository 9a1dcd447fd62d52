#pragma once

#include "disposal/Settings.h"

#include <QCoreApplication>
#include <QString>

#include <vector>

namespace vexmoor {

/// One setting as it is shown. A plain value.
struct SettingText {
    Q_DECLARE_TR_FUNCTIONS(vexmoor::SettingText)

  public:
    /// The switch it is bound to; null for the dispose mode, where on is dissolve.
    Setting<bool> Settings::*setting = nullptr;
    QString label;
    QString caption; ///< empty without one
    bool isOn = false;
    bool isPossible = true;

    /// All, in the order of showing. Without `keyIsPossible` nothing can take the key in this
    /// session.
    static std::vector<SettingText> all(const Settings& settings, bool keyIsPossible);

    bool operator==(const SettingText&) const = default;
};

} // namespace vexmoor
