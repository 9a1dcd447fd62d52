#pragma once

#include "disposal/Settings.h"

#include <QCoreApplication>
#include <QString>

#include <vector>

namespace vexmoor {

/// The display texts and state of a setting.
struct SettingText {
    Q_DECLARE_TR_FUNCTIONS(vexmoor::SettingText)

  public:
    /// The setting; null for the dispose mode, where on means dissolve.
    Setting<bool> Settings::*setting = nullptr;
    QString label;
    QString caption; ///< may be empty
    bool isOn = false;
    bool isPossible = true;

    /// Returns all settings in display order. `keyIsPossible` is false if nothing can capture or
    /// bind the key in this session.
    static std::vector<SettingText> all(const Settings& settings, bool keyIsPossible);

    bool operator==(const SettingText&) const = default;
};

} // namespace vexmoor
