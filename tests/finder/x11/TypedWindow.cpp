#include "TypedWindow.h"

#include "support/BackgroundProgram.h"

#include <xkbcommon/xkbcommon.h>

#include <algorithm>
#include <stdexcept>

namespace vexmoor::test {

TypedWindow::TypedWindow(const std::string& className) : m_connection(x11::XConnection::open()) {
    if (!m_connection || !m_keyboard.open(*m_connection))
        throw std::runtime_error("there is no display");
    xcb_connection_t* const x = m_connection->get();
    m_window = xcb_generate_id(x);
    constexpr std::uint32_t kEvents = XCB_EVENT_MASK_KEY_PRESS;
    xcb_create_window(x, XCB_COPY_FROM_PARENT, m_window, m_connection->root(), 0, 0, 200, 200, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK,
                      &kEvents);
    std::string names = "instance";
    names += '\0';
    names += className;
    names += '\0';
    xcb_change_property(x, XCB_PROP_MODE_REPLACE, m_window, XCB_ATOM_WM_CLASS, XCB_ATOM_STRING, 8,
                        static_cast<std::uint32_t>(names.size()), names.data());
    xcb_map_window(x, m_window);
    m_connection->sync();
}

bool TypedWindow::isActive() {
    return eventually([this] {
        const auto active =
            m_connection->numbers(m_connection->root(), m_connection->atom("_NET_ACTIVE_WINDOW"));
        const x11::Reply<xcb_get_input_focus_reply_t> focus(xcb_get_input_focus_reply(
            m_connection->get(), xcb_get_input_focus(m_connection->get()), nullptr));
        return !active.empty() && active.front() == m_window && focus && focus->focus == m_window;
    });
}

std::vector<std::string> TypedWindow::typed() {
    m_connection->sync();
    while (const x11::Event event{xcb_poll_for_event(m_connection->get())}) {
        if ((event->response_type & 0x7f) != XCB_KEY_PRESS) {
            m_keyboard.follow(*event);
            continue;
        }
        const auto key = reinterpret_cast<const xcb_key_press_event_t&>(*event).detail;
        for (const char* name : {"BackSpace", "a", "c", "x", "y", "z"}) {
            const auto keys = m_keyboard.keysOf(xkb_keysym_from_name(name, XKB_KEYSYM_NO_FLAGS));
            if (std::ranges::count(keys, key) > 0)
                m_typed.emplace_back(name);
        }
    }
    return m_typed;
}

std::vector<std::string> TypedWindow::typedUntil(const std::string& key) {
    eventually([&] {
        const auto all = typed();
        return !all.empty() && all.back() == key;
    });
    return std::exchange(m_typed, {});
}

} // namespace vexmoor::test
