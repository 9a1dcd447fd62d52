#pragma once

#include "Keyboard.h"

#include <functional>

namespace vexmoor::x11 {

/// Synthesises Ctrl+C (XTEST), even while the user holds Ctrl.
class CopyKey {
  public:
    /// `willPress` is called before each press of the key that produces "c".
    CopyKey(XConnection& connection, const Keyboard& keyboard,
            std::function<void(xcb_keycode_t)> willPress);
    /// Restores a temporarily assigned key.
    ~CopyKey();
    CopyKey(const CopyKey&) = delete;
    CopyKey& operator=(const CopyKey&) = delete;

    /// Returns false if no key produces "c", another modifier stays pressed, or the server lacks
    /// XTEST.
    bool press();

  private:
    enum class Outcome { pressed, otherModifierHeld, controlReleased };

    bool findKey();
    Outcome pressOnce(bool isSecond);
    [[nodiscard]] std::uint16_t modifiers() const;
    void fake(bool down, xcb_keycode_t key) const;

    XConnection& m_connection;
    const Keyboard& m_keyboard;
    std::function<void(xcb_keycode_t)> m_willPress;
    std::optional<xcb_keycode_t> m_key;
    std::optional<xcb_keycode_t> m_borrowed; ///< an unused key that temporarily produces "c"
};

} // namespace vexmoor::x11
