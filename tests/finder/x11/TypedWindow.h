#pragma once

#include "finder/linux/Keyboard.h"

#include <memory>
#include <string>
#include <vector>

namespace vexmoor::test {

/// A window of another program that has the keyboard focus and records typed keys.
class TypedWindow {
  public:
    explicit TypedWindow(const std::string& className);

    /// Waits until the window manager has activated it.
    [[nodiscard]] bool isActive();

    /// Returns the keysym names of the keys pressed so far.
    [[nodiscard]] std::vector<std::string> typed();

    /// Waits for the key. Returns the keys pressed so far, including it.
    [[nodiscard]] std::vector<std::string> typedUntil(const std::string& key);

    [[nodiscard]] x11::XConnection& connection() { return *m_connection; }

  private:
    std::unique_ptr<x11::XConnection> m_connection;
    x11::Keyboard m_keyboard;
    xcb_window_t m_window = XCB_WINDOW_NONE;
    std::vector<std::string> m_typed;
};

} // namespace vexmoor::test
