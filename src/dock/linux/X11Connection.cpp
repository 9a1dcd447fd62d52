#include "X11Connection.h"

#include <QGuiApplication>

#include <cstdint>
#include <cstring>

namespace vexmoor::x11 {

xcb_connection_t* connection() {
    const auto* const x11 =
        qGuiApp ? qGuiApp->nativeInterface<QNativeInterface::QX11Application>() : nullptr;
    return x11 ? x11->connection() : nullptr;
}

xcb_window_t root() {
    return xcb_setup_roots_iterator(xcb_get_setup(connection())).data->root;
}

xcb_atom_t atom(const char* name) {
    const auto cookie =
        xcb_intern_atom(connection(), 0, static_cast<std::uint16_t>(std::strlen(name)), name);
    const Reply<xcb_intern_atom_reply_t> reply(
        xcb_intern_atom_reply(connection(), cookie, nullptr));
    return reply ? reply->atom : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
}

} // namespace vexmoor::x11
