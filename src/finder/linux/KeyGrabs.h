#pragma once

#include "Keyboard.h"

#include <set>
#include <utility>

namespace vexmoor::x11 {

/// Synchronous passive grabs of Ctrl and a key on the root window, for all states of the lock keys.
class KeyGrabs {
  public:
    explicit KeyGrabs(XConnection& connection) : m_connection(connection) {}

    /// Grabs exactly these keys, except those that other programs have grabbed.
    void hold(const Keyboard& keyboard, const std::vector<xcb_keycode_t>& keys);

    /// False if another program has grabbed some of the requested keys.
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
