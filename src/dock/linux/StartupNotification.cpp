#include "dock/StartupNotification.h"

#include "X11Connection.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <optional>

namespace vexmoor::native {
namespace {

using x11::atom;
using x11::connection;

/// Returns the time of the user's request in server milliseconds. The id ends with "_TIME" and that
/// number.
std::optional<xcb_timestamp_t> timeOf(const QByteArray& id) {
    constexpr const char* kMark = "_TIME";
    const auto mark = id.lastIndexOf(kMark);
    bool isNumber = false;
    const auto time = id.mid(mark + static_cast<qsizetype>(std::strlen(kMark))).toUInt(&isNumber);
    return mark >= 0 && isNumber ? std::optional(time) : std::nullopt;
}

QByteArray quoted(const QByteArray& text) {
    QByteArray result = "\"";
    for (const char c : text) {
        if (c == '"' || c == '\\')
            result += '\\';
        result += c;
    }
    return result + '"';
}

/// Sends a client message to all clients that watch the root window's properties.
void sendToRoot(const xcb_client_message_event_t& event, std::uint32_t mask) {
    xcb_send_event(connection(), 0, x11::root(), mask, reinterpret_cast<const char*>(&event));
}

/// Sends the text in pieces, including its terminating NUL, from a temporary window.
void broadcast(const QByteArray& text) {
    const xcb_window_t sender = xcb_generate_id(connection());
    xcb_create_window(connection(), XCB_COPY_FROM_PARENT, sender, x11::root(), -1, -1, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, 0, nullptr);
    xcb_client_message_event_t event{};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 8;
    event.window = sender;
    event.type = atom("_NET_STARTUP_INFO_BEGIN");
    constexpr qsizetype kPiece = sizeof event.data.data8;
    for (qsizetype sent = 0; sent <= text.size(); sent += kPiece) {
        std::ranges::fill(event.data.data8, std::uint8_t{0});
        std::memcpy(event.data.data8, text.constData() + sent,
                    static_cast<std::size_t>(std::min(kPiece, text.size() - sent)));
        sendToRoot(event, XCB_EVENT_MASK_PROPERTY_CHANGE);
        event.type = atom("_NET_STARTUP_INFO");
    }
    xcb_destroy_window(connection(), sender);
}

void activate(WId window, xcb_timestamp_t time) {
    constexpr std::uint32_t kFromApplication = 1;
    xcb_client_message_event_t event{};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = static_cast<xcb_window_t>(window);
    event.type = atom("_NET_ACTIVE_WINDOW");
    event.data.data32[0] = kFromApplication;
    event.data.data32[1] = time;
    sendToRoot(event, XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY);
}

} // namespace

void answerStartup(WId window, const QByteArray& id) {
    if (!connection())
        return;
    xcb_change_property(connection(), XCB_PROP_MODE_REPLACE, static_cast<xcb_window_t>(window),
                        atom("_NET_STARTUP_ID"), atom("UTF8_STRING"), 8,
                        static_cast<std::uint32_t>(id.size()), id.constData());
    if (const auto time = timeOf(id))
        activate(window, *time);
    xcb_flush(connection());
}

void endStartup(const QByteArray& id) {
    if (!connection())
        return;
    broadcast("remove: ID=" + quoted(id));
    xcb_flush(connection());
}

} // namespace vexmoor::native
