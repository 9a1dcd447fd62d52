#pragma once

#include "Keyboard.h"

#include <set>
#include <utility>

namespace vexmoor::x11 {

/// Synchronous passive grabs of Ctrl and a key on the root window, whatever the lock keys.
class KeyGrabs {
  public:
    explicit KeyGrabs(XConnection& connection) : m_connection(connection) {}

    /// Holds the grabs of exactly these keys from now on, as far as other programs leave them.
    void hold(const Keyboard& keyboard, const std::vector<xcb_keycode_t>& keys);

    /// False if another program holds some of the keys that were asked for.
    [[nodiscard]] bool isComplete() const { return m_isComplete; }
    [[nodiscard]] bool isHeld(xcb_keycode_t key) const;

  private:
    using Grab = std::pair<xcb_keycode_t, std::uint16_t>; ///< key and modifiers

    bool grab(const Grab& grab);

    XConnection& m_connection;
    std::set<Grab> m_held;
    bool m_isComplete = true;
};

} // namespace vexmoor::x11
