#include "XConnection.h"

#include <poll.h>

#include <algorithm>
#include <cstring>

namespace vexmoor::x11 {

namespace {

constexpr std::uint32_t kMostBytes = 64 * 1024;

} // namespace

std::unique_ptr<XConnection> XConnection::open(const char* display) {
    xcb_connection_t* const connection = xcb_connect(display, nullptr);
    if (xcb_connection_has_error(connection) == 0)
        return std::unique_ptr<XConnection>(new XConnection(connection));
    xcb_disconnect(connection);
    return nullptr;
}

XConnection::XConnection(xcb_connection_t* connection)
    : m_connection(connection),
      m_root(xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root) {}

XConnection::~XConnection() {
    xcb_disconnect(m_connection);
}

xcb_atom_t XConnection::atom(const std::string& name) {
    const auto known = m_atoms.find(name);
    if (known != m_atoms.end())
        return known->second;
    const auto cookie =
        xcb_intern_atom(m_connection, 0, static_cast<std::uint16_t>(name.size()), name.data());
    const Reply<xcb_intern_atom_reply_t> reply(
        xcb_intern_atom_reply(m_connection, cookie, nullptr));
    return reply ? m_atoms[name] = reply->atom : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
}

std::string XConnection::atomName(xcb_atom_t atom) const {
    const Reply<xcb_get_atom_name_reply_t> reply(
        xcb_get_atom_name_reply(m_connection, xcb_get_atom_name(m_connection, atom), nullptr));
    if (!reply)
        return {};
    return {xcb_get_atom_name_name(reply.get()),
            static_cast<std::size_t>(xcb_get_atom_name_name_length(reply.get()))};
}

Event XConnection::waitForEvent(std::chrono::steady_clock::time_point deadline) const {
    using std::chrono::milliseconds;
    xcb_flush(m_connection);
    for (;;) {
        Event event(xcb_poll_for_event(m_connection));
        const auto left =
            std::chrono::ceil<milliseconds>(deadline - std::chrono::steady_clock::now());
        if (event || isBroken() || left <= milliseconds(0))
            return event;
        pollfd input{.fd = descriptor(), .events = POLLIN, .revents = 0};
        ::poll(&input, 1, static_cast<int>(left.count()));
    }
}

std::string XConnection::bytes(xcb_window_t window, xcb_atom_t property) const {
    const auto cookie = xcb_get_property(m_connection, 0, window, property,
                                         XCB_GET_PROPERTY_TYPE_ANY, 0, kMostBytes / 4);
    const Reply<xcb_get_property_reply_t> reply(
        xcb_get_property_reply(m_connection, cookie, nullptr));
    if (!reply)
        return {};
    return {static_cast<const char*>(xcb_get_property_value(reply.get())),
            static_cast<std::size_t>(xcb_get_property_value_length(reply.get()))};
}

std::vector<std::uint32_t> XConnection::numbersIn(std::string_view bytes) {
    std::vector<std::uint32_t> result(bytes.size() / sizeof(std::uint32_t));
    if (!result.empty()) // memcpy must not be passed null
        std::memcpy(result.data(), bytes.data(), result.size() * sizeof(std::uint32_t));
    return result;
}

std::vector<std::uint32_t> XConnection::numbers(xcb_window_t window, xcb_atom_t property) const {
    return numbersIn(bytes(window, property));
}

void XConnection::sync() const {
    const Reply<xcb_get_input_focus_reply_t> reply(
        xcb_get_input_focus_reply(m_connection, xcb_get_input_focus(m_connection), nullptr));
}

} // namespace vexmoor::x11
