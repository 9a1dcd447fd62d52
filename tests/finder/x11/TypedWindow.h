#pragma once

#include "finder/linux/Keyboard.h"

#include <memory>
#include <string>
#include <vector>

namespace vexmoor::test {

/// A window of another program that gets the keyboard focus and notes what is typed.
class TypedWindow {
  public:
    explicit TypedWindow(const std::string& className);

    /// Waits until the window manager has made it the active one.
    [[nodiscard]] bool isActive();

    /// The keys that were pressed in it, as X keysyms name them, up to now.
    [[nodiscard]] std::vector<std::string> typed();

    /// Waits until that key comes; what came before it, and it.
    [[nodiscard]] std::vector<std::string> typedUntil(const std::string& key);

    [[nodiscard]] x11::XConnection& connection() { return *m_connection; }

  private:
    std::unique_ptr<x11::XConnection> m_connection;
    x11::Keyboard m_keyboard;
    xcb_window_t m_window = XCB_WINDOW_NONE;
    std::vector<std::string> m_typed;
};

} // namespace vexmoor::test
