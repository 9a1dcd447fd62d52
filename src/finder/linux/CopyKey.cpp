#include "CopyKey.h"

#include <xcb/xtest.h>
#include <xkbcommon/xkbcommon-keysyms.h>

#include <poll.h>

#include <utility>

namespace vexmoor::x11 {

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::chrono::milliseconds kOtherModifiers{300};
constexpr int kLookAgainMilliseconds = 10;

void defineKey(XConnection& connection, xcb_keycode_t key, xkb_keysym_t symbol) {
    xcb_change_keyboard_mapping(connection.get(), 1, key, 1, &symbol);
    connection.sync();
}

} // namespace

CopyKey::CopyKey(XConnection& connection, const Keyboard& keyboard,
                 std::function<void(xcb_keycode_t)> willPress)
    : m_connection(connection), m_keyboard(keyboard), m_willPress(std::move(willPress)) {}

CopyKey::~CopyKey() {
    if (m_borrowed)
        defineKey(m_connection, *m_borrowed, XKB_KEY_NoSymbol);
}

/// If no layout has Latin letters, temporarily assigns "c" to an unused key.
bool CopyKey::findKey() {
    m_key = m_keyboard.keyOf(XKB_KEY_c);
    if (m_key)
        return true;
    m_borrowed = m_keyboard.unusedKey();
    if (!m_borrowed)
        return false;
    m_key = m_borrowed;
    defineKey(m_connection, *m_borrowed, XKB_KEY_c);
    return true;
}

bool CopyKey::press() {
    const auto* const extension = xcb_get_extension_data(m_connection.get(), &xcb_test_id);
    if (extension == nullptr || extension->present == 0 || !findKey())
        return false;
    const auto deadline = Clock::now() + kOtherModifiers;
    bool isSecond = false;
    for (;;) {
        const Outcome outcome = pressOnce(isSecond);
        if (outcome == Outcome::pressed)
            return true;
        isSecond = outcome == Outcome::controlReleased;
        if (Clock::now() >= deadline || m_connection.isBroken())
            return false;
        if (!isSecond)
            ::poll(nullptr, 0, kLookAgainMilliseconds);
    }
}

/// The server grab keeps other programs' requests from coming between the query and the press. The
/// user can still release Ctrl; then the program received a plain "c", and the combination is
/// pressed again.
CopyKey::Outcome CopyKey::pressOnce(bool isSecond) {
    constexpr std::uint16_t kOthers = XCB_MOD_MASK_SHIFT | XCB_MOD_MASK_1 | XCB_MOD_MASK_4;
    const auto controls = m_keyboard.keysOf(XKB_KEY_Control_L);
    xcb_grab_server(m_connection.get());
    const std::uint16_t before = modifiers();
    const bool isHeld = (before & XCB_MOD_MASK_CONTROL) != 0;
    Outcome outcome = Outcome::otherModifierHeld;
    if ((before & kOthers) == 0 && !controls.empty()) {
        const bool pressesControl = !isHeld;
        if (pressesControl)
            fake(true, controls.front());
        m_willPress(*m_key);
        fake(true, *m_key);
        fake(false, *m_key);
        if (pressesControl)
            fake(false, controls.front());
        const bool isStillHeld = pressesControl || (modifiers() & XCB_MOD_MASK_CONTROL) != 0;
        outcome = isStillHeld || isSecond ? Outcome::pressed : Outcome::controlReleased;
    }
    xcb_ungrab_server(m_connection.get());
    xcb_flush(m_connection.get());
    return outcome;
}

std::uint16_t CopyKey::modifiers() const {
    const Reply<xcb_query_pointer_reply_t> pointer(xcb_query_pointer_reply(
        m_connection.get(), xcb_query_pointer(m_connection.get(), m_connection.root()), nullptr));
    return pointer ? pointer->mask : std::uint16_t{0};
}

void CopyKey::fake(bool down, xcb_keycode_t key) const {
    xcb_test_fake_input(m_connection.get(), down ? XCB_KEY_PRESS : XCB_KEY_RELEASE, key,
                        XCB_CURRENT_TIME, m_connection.root(), 0, 0, 0);
}

} // namespace vexmoor::x11
