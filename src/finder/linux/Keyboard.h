#pragma once

#include "XConnection.h"

#include <xkbcommon/xkbcommon.h>

#include <array>
#include <memory>
#include <string>
#include <vector>

namespace vexmoor::x11 {

/// The X server's current keyboard mapping.
class Keyboard {
  public:
    /// Selects mapping change events. Returns false if the server lacks XKB.
    bool open(XConnection& connection);

    /// Reads the mapping again if the event reports a change. Returns true if it did.
    bool follow(const xcb_generic_event_t& event);

    /// Returns all keys that produce the symbol without modifiers in any layout.
    [[nodiscard]] std::vector<xcb_keycode_t> keysOf(xkb_keysym_t symbol) const;
    /// Returns the key that produces the symbol in the active layout, otherwise in another one.
    [[nodiscard]] std::optional<xcb_keycode_t> keyOf(xkb_keysym_t symbol) const;
    /// Returns a key without symbols.
    [[nodiscard]] std::optional<xcb_keycode_t> unusedKey() const;

    /// Returns the key's Latin letter without modifiers in the layout of the event state, otherwise
    /// in the first layout that has one.
    [[nodiscard]] std::string letterOf(xcb_keycode_t key, std::uint16_t state) const;

    /// Returns the modifier bits that the key sets, or 0 if it is no modifier.
    [[nodiscard]] std::uint16_t modifiersOf(xcb_keycode_t key) const;

    /// Returns all combinations of the lock modifiers, including none.
    [[nodiscard]] std::vector<std::uint16_t> lockCombinations() const;

  private:
    using KeymapPointer = std::unique_ptr<xkb_keymap, decltype(&xkb_keymap_unref)>;
    using ContextPointer = std::unique_ptr<xkb_context, decltype(&xkb_context_unref)>;

    void read();
    [[nodiscard]] xkb_keysym_t symbolOf(xcb_keycode_t key, xkb_layout_index_t layout) const;

    XConnection* m_connection = nullptr;
    std::uint8_t m_firstEvent = 0;
    std::int32_t m_device = -1;
    ContextPointer m_context{nullptr, &xkb_context_unref};
    KeymapPointer m_keymap{nullptr, &xkb_keymap_unref};
    std::array<std::vector<xcb_keycode_t>, 8>
        m_modifiers; ///< the keys of each modifier, Shift first
};

} // namespace vexmoor::x11
