#include "FileManagerWindows.h"

#include <ranges>

namespace vexmoor::x11 {

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::chrono::milliseconds kActivation{1000};
constexpr std::uint32_t kFromPager = 2; ///< the source indication for user requests

std::optional<FileManagerWindow> fileManagerWindow(XConnection& connection, xcb_window_t window) {
    // "instance\0class\0"
    const std::string names = connection.bytes(window, XCB_ATOM_WM_CLASS);
    const auto end = names.find('\0');
    if (end == std::string::npos)
        return std::nullopt;
    const FileManager* const manager = fileManagerOfWindowClass(names.c_str() + end + 1);
    if (manager == nullptr)
        return std::nullopt;
    const auto process = connection.numbers(window, connection.atom("_NET_WM_PID"));
    return FileManagerWindow{window, manager,
                             process.empty() ? std::nullopt
                                             : std::optional(static_cast<pid_t>(process.front()))};
}

void requestActivation(XConnection& connection, xcb_window_t window) {
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = window;
    message.type = connection.atom("_NET_ACTIVE_WINDOW");
    message.data.data32[0] = kFromPager;
    message.data.data32[1] = XCB_CURRENT_TIME;
    xcb_send_event(connection.get(), 0, connection.root(),
                   XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                   reinterpret_cast<const char*>(&message));
}

std::optional<FileManagerWindow> uppermostFileManager(XConnection& connection) {
    const auto windows =
        connection.numbers(connection.root(), connection.atom("_NET_CLIENT_LIST_STACKING"));
    for (const xcb_window_t window : std::views::reverse(windows))
        if (auto found = fileManagerWindow(connection, window))
            return found;
    return std::nullopt;
}

} // namespace

std::optional<FileManagerWindow> activeFileManager(XConnection& connection) {
    const auto active =
        connection.numbers(connection.root(), connection.atom("_NET_ACTIVE_WINDOW"));
    if (active.empty() || active.front() == XCB_WINDOW_NONE)
        return std::nullopt;
    return fileManagerWindow(connection, active.front());
}

std::optional<FileManagerWindow> activateFileManager(XConnection& connection) {
    if (auto active = activeFileManager(connection))
        return active;
    const auto wanted = uppermostFileManager(connection);
    if (!wanted)
        return std::nullopt;
    constexpr std::uint32_t kEvents = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_change_window_attributes(connection.get(), connection.root(), XCB_CW_EVENT_MASK, &kEvents);
    requestActivation(connection, wanted->id);
    const auto deadline = Clock::now() + kActivation;
    for (;;) {
        if (const auto active = activeFileManager(connection); active == wanted)
            return active;
        if (Clock::now() >= deadline || connection.isBroken())
            return std::nullopt;
        (void)connection.waitForEvent(deadline); // usually a property change of the root window
    }
}

} // namespace vexmoor::x11
