#pragma once

#include "base/Published.h"
#include "base/UserDefaults.h"
#include "disposal/DisposeMode.h"

#include <array>
#include <string>

namespace vexmoor {

/// A user setting: an observable value that is stored when it is set.
template <typename T>
class Setting {
  public:
    Setting(UserDefaults& defaults, const char* key, T value)
        : m_defaults(defaults), m_key(key), m_value(value) {}

    const T& get() const { return m_value.get(); }
    void set(T value);
    Subscription subscribe(typename Published<T>::Subscriber subscriber) {
        return m_value.subscribe(std::move(subscriber));
    }

  private:
    UserDefaults& m_defaults;
    const char* m_key;
    Published<T> m_value;
};

/// The user's six settings. Main thread only.
class Settings {
  public:
    /// Loads the settings. Any mode other than "dissolve" is read as `bin`; a switch that is not
    /// stored as a Boolean is on.
    explicit Settings(UserDefaults& defaults);

    Setting<DisposeMode> mode;
    Setting<bool> confirmDissolve;
    Setting<bool> sound;
    Setting<bool> escapeDock;          ///< flames may leave the tile
    Setting<bool> captureFinderDelete; ///< Ctrl+Backspace in the file manager feeds the selection
    Setting<bool> showMenuBarIcon;

    struct Switch {
        const char* name;
        Setting<bool> Settings::*setting;
    };

    /// Returns the five Boolean settings by name, in order.
    static const std::array<Switch, 5>& switches();
};

} // namespace vexmoor
