#pragma once

#include <string>
#include <vector>

namespace vexmoor {

/// The command line's description of a setting.
struct SettingDescription {
    std::string name;
    const char* description;         ///< marked()
    std::vector<std::string> values; ///< accepted values, the preferred spelling of each
};

/// Returns all settings in display order.
const std::vector<SettingDescription>& settingDescriptions();

} // namespace vexmoor
