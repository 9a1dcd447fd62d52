#pragma once

#include <string>
#include <vector>

namespace vexmoor {

/// What the command line knows of a setting.
struct SettingDescription {
    std::string name;
    const char* description;         ///< marked()
    std::vector<std::string> values; ///< that it can be set to, the usual spelling of each
};

/// All settings, in the order in which they are listed.
const std::vector<SettingDescription>& settingDescriptions();

} // namespace vexmoor
