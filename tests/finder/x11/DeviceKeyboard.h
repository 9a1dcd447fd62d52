#pragma once

#include "finder/linux/Keyboard.h"

#include <initializer_list>
#include <memory>
#include <string>

namespace vexmoor::test {

/// Simulates a display's physical keyboard: the events come from the device itself, not from the
/// XTEST device.
class DeviceKeyboard {
  public:
    explicit DeviceKeyboard(const std::string& display);

    /// Presses the keys in order and releases them. Names are X keysyms, such as "BackSpace".
    void press(std::initializer_list<const char*> keys);
    void hold(const char* key) { change(key, true); }
    void release(const char* key) { change(key, false); }

  private:
    void change(const char* key, bool isDown);

    std::unique_ptr<x11::XConnection> m_connection;
    x11::Keyboard m_keyboard;
    std::uint8_t m_firstEvent = 0;
    std::uint8_t m_device = 0;
};

} // namespace vexmoor::test
