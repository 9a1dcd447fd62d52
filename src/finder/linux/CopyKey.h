#pragma once

#include "Keyboard.h"

#include <functional>

namespace vexmoor::x11 {

/// Presses Ctrl+C as if by hand (XTEST), while the user may hold Ctrl himself.
class CopyKey {
  public:
    /// `willPress` is called before each press of the key that gives the "c".
    CopyKey(XConnection& connection, const Keyboard& keyboard,
            std::function<void(xcb_keycode_t)> willPress);
    /// Takes a meaning away again that it gave to an unused key.
    ~CopyKey();
    CopyKey(const CopyKey&) = delete;
    CopyKey& operator=(const CopyKey&) = delete;

    /// False if no key can give a "c", another modifier stays held, or the server has no XTEST.
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
    std::optional<xcb_keycode_t> m_borrowed; ///< a key without a meaning that means "c" now
};

} // namespace vexmoor::x11
