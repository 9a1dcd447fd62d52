#include "Keyboard.h"

// The XKB header has a field whose name is a C++ keyword.
#define explicit explicitField
#include <xcb/xkb.h>
#undef explicit

#include <xkbcommon/xkbcommon-keysyms.h>
#include <xkbcommon/xkbcommon-x11.h>

#include <algorithm>

namespace vexmoor::x11 {

namespace {

bool isLatinLetter(xkb_keysym_t symbol) {
    return (symbol >= XKB_KEY_a && symbol <= XKB_KEY_z) ||
           (symbol >= XKB_KEY_A && symbol <= XKB_KEY_Z);
}

/// Returns bits 13 and 14 of a core event's state (X Keyboard Extension protocol, 2.2.2).
xkb_layout_index_t layoutOf(std::uint16_t state) {
    return (state >> 13) & 3;
}

} // namespace

bool Keyboard::open(XConnection& connection) {
    m_connection = &connection;
    if (xkb_x11_setup_xkb_extension(
            connection.get(), XKB_X11_MIN_MAJOR_XKB_VERSION, XKB_X11_MIN_MINOR_XKB_VERSION,
            XKB_X11_SETUP_XKB_EXTENSION_NO_FLAGS, nullptr, nullptr, &m_firstEvent, nullptr) == 0)
        return false;
    m_device = xkb_x11_get_core_keyboard_device_id(connection.get());
    m_context.reset(xkb_context_new(XKB_CONTEXT_NO_FLAGS));
    constexpr std::uint16_t kEvents =
        XCB_XKB_EVENT_TYPE_NEW_KEYBOARD_NOTIFY | XCB_XKB_EVENT_TYPE_MAP_NOTIFY;
    constexpr std::uint16_t kParts =
        XCB_XKB_MAP_PART_KEY_TYPES | XCB_XKB_MAP_PART_KEY_SYMS | XCB_XKB_MAP_PART_MODIFIER_MAP;
    xcb_xkb_select_events(connection.get(), static_cast<xcb_xkb_device_spec_t>(m_device), kEvents,
                          0, kEvents, kParts, kParts, nullptr);
    read();
    return m_keymap != nullptr;
}

void Keyboard::read() {
    m_keymap.reset(xkb_x11_keymap_new_from_device(m_context.get(), m_connection->get(), m_device,
                                                  XKB_KEYMAP_COMPILE_NO_FLAGS));
    const auto cookie = xcb_get_modifier_mapping(m_connection->get());
    const Reply<xcb_get_modifier_mapping_reply_t> reply(
        xcb_get_modifier_mapping_reply(m_connection->get(), cookie, nullptr));
    for (auto& keys : m_modifiers)
        keys.clear();
    if (!reply)
        return;
    const xcb_keycode_t* key = xcb_get_modifier_mapping_keycodes(reply.get());
    for (auto& keys : m_modifiers)
        for (int i = 0; i < reply->keycodes_per_modifier; ++i, ++key)
            if (*key != 0)
                keys.push_back(*key);
}

bool Keyboard::follow(const xcb_generic_event_t& event) {
    constexpr int kSentByClient = 0x80;
    if ((event.response_type & ~kSentByClient) != m_firstEvent)
        return false;
    const auto kind = reinterpret_cast<const xcb_xkb_map_notify_event_t&>(event).xkbType;
    if (kind != XCB_XKB_MAP_NOTIFY && kind != XCB_XKB_NEW_KEYBOARD_NOTIFY)
        return false;
    read();
    return true;
}

xkb_keysym_t Keyboard::symbolOf(xcb_keycode_t key, xkb_layout_index_t layout) const {
    const xkb_keysym_t* symbols = nullptr;
    const int count = xkb_keymap_key_get_syms_by_level(m_keymap.get(), key, layout, 0, &symbols);
    return count == 1 ? symbols[0] : static_cast<xkb_keysym_t>(XKB_KEY_NoSymbol);
}

std::vector<xcb_keycode_t> Keyboard::keysOf(xkb_keysym_t symbol) const {
    std::vector<xcb_keycode_t> keys;
    if (!m_keymap)
        return keys;
    for (auto key = xkb_keymap_min_keycode(m_keymap.get());
         key <= xkb_keymap_max_keycode(m_keymap.get()); ++key) {
        const auto code = static_cast<xcb_keycode_t>(key);
        for (xkb_layout_index_t layout = 0;
             layout < xkb_keymap_num_layouts_for_key(m_keymap.get(), key); ++layout)
            if (symbolOf(code, layout) == symbol) {
                keys.push_back(code);
                break;
            }
    }
    return keys;
}

std::optional<xcb_keycode_t> Keyboard::keyOf(xkb_keysym_t symbol) const {
    const auto keys = keysOf(symbol);
    if (keys.empty())
        return std::nullopt;
    const std::unique_ptr<xkb_state, decltype(&xkb_state_unref)> state(
        xkb_x11_state_new_from_device(m_keymap.get(), m_connection->get(), m_device),
        &xkb_state_unref);
    const auto layout =
        state ? xkb_state_serialize_layout(state.get(), XKB_STATE_LAYOUT_EFFECTIVE) : 0;
    const auto here = std::ranges::find_if(
        keys, [&](xcb_keycode_t key) { return symbolOf(key, layout) == symbol; });
    return here != keys.end() ? *here : keys.front();
}

std::optional<xcb_keycode_t> Keyboard::unusedKey() const {
    for (auto key = xkb_keymap_max_keycode(m_keymap.get());
         key > xkb_keymap_min_keycode(m_keymap.get()); --key)
        if (xkb_keymap_num_layouts_for_key(m_keymap.get(), key) == 0)
            return static_cast<xcb_keycode_t>(key);
    return std::nullopt;
}

std::string Keyboard::letterOf(xcb_keycode_t key, std::uint16_t state) const {
    const auto count = xkb_keymap_num_layouts_for_key(m_keymap.get(), key);
    xkb_keysym_t symbol = symbolOf(key, layoutOf(state));
    for (xkb_layout_index_t layout = 0; layout < count && !isLatinLetter(symbol); ++layout)
        symbol = symbolOf(key, layout);
    return isLatinLetter(symbol) ? std::string(1, static_cast<char>(symbol)) : std::string();
}

std::uint16_t Keyboard::modifiersOf(xcb_keycode_t key) const {
    unsigned mask = 0;
    for (std::size_t i = 0; i < m_modifiers.size(); ++i)
        if (std::ranges::count(m_modifiers[i], key) > 0)
            mask |= 1u << i;
    return static_cast<std::uint16_t>(mask);
}

std::vector<std::uint16_t> Keyboard::lockCombinations() const {
    std::uint16_t locks = XCB_MOD_MASK_LOCK;
    for (const xkb_keysym_t lock : {XKB_KEY_Num_Lock, XKB_KEY_Scroll_Lock})
        for (const xcb_keycode_t key : keysOf(lock))
            locks = static_cast<std::uint16_t>(locks | modifiersOf(key));
    std::vector<std::uint16_t> combinations;
    for (std::uint16_t mask = 0; mask <= locks; ++mask)
        if ((mask & ~locks) == 0)
            combinations.push_back(mask);
    return combinations;
}

} // namespace vexmoor::x11
