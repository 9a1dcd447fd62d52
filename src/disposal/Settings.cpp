#include "Settings.h"

namespace vexmoor {

namespace {

constexpr const char* kModeKey = "settings.mode";

Setting<bool> loadedSwitch(UserDefaults& defaults, const char* key) {
    return {defaults, key, defaults.boolean(key).value_or(true)};
}

} // namespace

template <>
void Setting<bool>::set(bool value) {
    m_defaults.assign(m_key, value);
    m_value.set(value);
}

template <>
void Setting<DisposeMode>::set(DisposeMode value) {
    m_defaults.assign(m_key, std::string(toRawValue(value)));
    m_value.set(value);
}

Settings::Settings(UserDefaults& defaults)
    : mode(defaults, kModeKey,
           disposeModeFromRawValue(defaults.string(kModeKey).value_or(""))
               .value_or(DisposeMode::bin)),
      confirmDissolve(loadedSwitch(defaults, "settings.confirmDissolve")),
      sound(loadedSwitch(defaults, "settings.sound")),
      escapeDock(loadedSwitch(defaults, "settings.escapeDock")),
      captureFinderDelete(loadedSwitch(defaults, "settings.captureFinderDelete")),
      showMenuBarIcon(loadedSwitch(defaults, "settings.showMenuBarIcon")) {}

const std::array<Settings::Switch, 5>& Settings::switches() {
    static constexpr std::array<Switch, 5> kSwitches = {{
        {"confirmDissolve", &Settings::confirmDissolve},
        {"sound", &Settings::sound},
        {"escapeDock", &Settings::escapeDock},
        {"captureFinderDelete", &Settings::captureFinderDelete},
        {"showMenuBarIcon", &Settings::showMenuBarIcon},
    }};
    return kSwitches;
}

} // namespace vexmoor
