#pragma once

#include "XConnection.h"

#include <xkbcommon/xkbcommon.h>

#include <array>
#include <memory>
#include <string>
#include <vector>

namespace vexmoor::x11 {

/// What the keys of the keyboard mean, as the X server has it at the moment.
class Keyboard {
  public:
    /// Selects the events of changes. False if the server has no XKB.
    bool open(XConnection& connection);

    /// Reads the keyboard's meaning again if the event reports a change.
    /// \return whether it changed.
    bool follow(const xcb_generic_event_t& event);

    /// All keys that give this symbol without modifiers in any of the layouts.
    [[nodiscard]] std::vector<xcb_keycode_t> keysOf(xkb_keysym_t symbol) const;
    /// The key that gives this symbol in the layout in use or, if none does, in another one.
    [[nodiscard]] std::optional<xcb_keycode_t> keyOf(xkb_keysym_t symbol) const;
    /// A key without any meaning.
    [[nodiscard]] std::optional<xcb_keycode_t> unusedKey() const;

    /// The key's Latin letter without modifiers, in the layout that the state of an event names or,
    /// where that one has no Latin letter on the key, in the first one that has.
    [[nodiscard]] std::string letterOf(xcb_keycode_t key, std::uint16_t state) const;

    /// The modifiers that the key stands for, as bits of an event's state; 0 if it is none.
    [[nodiscard]] std::uint16_t modifiersOf(xcb_keycode_t key) const;

    /// All combinations of the lock keys, none among them, as modifiers of a grab.
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
    std::array<std::vector<xcb_keycode_t>, 8> m_modifiers; ///< the keys of each, Shift first
};

} // namespace vexmoor::x11
