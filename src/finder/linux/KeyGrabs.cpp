#include "KeyGrabs.h"

#include <algorithm>

namespace vexmoor::x11 {

void KeyGrabs::hold(const Keyboard& keyboard, const std::vector<xcb_keycode_t>& keys) {
    std::set<Grab> wanted;
    for (const std::uint16_t locks : keyboard.lockCombinations())
        for (const xcb_keycode_t key : keys)
            wanted.emplace(key, static_cast<std::uint16_t>(XCB_MOD_MASK_CONTROL | locks));
    std::erase_if(m_held, [&](const Grab& held) {
        if (wanted.contains(held))
            return false;
        xcb_ungrab_key(m_connection.get(), held.first, m_connection.root(), held.second);
        return true;
    });
    m_isComplete = true;
    for (const Grab& one : wanted)
        if (!m_held.contains(one) && !grab(one))
            m_isComplete = false;
    xcb_flush(m_connection.get());
}

bool KeyGrabs::grab(const Grab& grab) {
    const auto cookie =
        xcb_grab_key_checked(m_connection.get(), 0, m_connection.root(), grab.second, grab.first,
                             XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_SYNC);
    const Reply<xcb_generic_error_t> error(xcb_request_check(m_connection.get(), cookie));
    if (!error)
        m_held.insert(grab);
    return !error;
}

bool KeyGrabs::isHeld(xcb_keycode_t key) const {
    return std::ranges::any_of(m_held, [key](const Grab& held) { return held.first == key; });
}

} // namespace vexmoor::x11
