#include "dock/NativeWindow.h"

#include "X11Connection.h"

#include <QGuiApplication>
#include <QScreen>

#include <xcb/shape.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <string_view>

namespace vexmoor::native {
namespace {

using x11::atom;
using x11::connection;
using x11::Reply;

xcb_window_t id(WId window) {
    return static_cast<xcb_window_t>(window);
}

template <std::size_t count>
void setProperty(WId window, const char* name, xcb_atom_t type,
                 const std::array<std::uint32_t, count>& values) {
    xcb_change_property(connection(), XCB_PROP_MODE_REPLACE, id(window), atom(name), type, 32,
                        count, values.data());
}

void setRectangles(WId window, xcb_shape_kind_t kind, const std::vector<QRect>& shape) {
    std::vector<xcb_rectangle_t> rectangles;
    rectangles.reserve(shape.size());
    for (const QRect& part : shape)
        rectangles.push_back(
            {static_cast<std::int16_t>(part.x()), static_cast<std::int16_t>(part.y()),
             static_cast<std::uint16_t>(part.width()), static_cast<std::uint16_t>(part.height())});
    xcb_shape_rectangles(connection(), XCB_SHAPE_SO_SET, kind, XCB_CLIP_ORDERING_UNSORTED,
                         id(window), 0, 0, static_cast<std::uint32_t>(rectangles.size()),
                         rectangles.data());
}

QByteArray property(xcb_window_t window, const char* name, xcb_atom_t type) {
    constexpr std::uint32_t kLongestWords = 64;
    const auto cookie =
        xcb_get_property(connection(), 0, window, atom(name), type, 0, kLongestWords);
    const Reply<xcb_get_property_reply_t> reply(
        xcb_get_property_reply(connection(), cookie, nullptr));
    if (!reply)
        return {};
    return {static_cast<const char*>(xcb_get_property_value(reply.get())),
            xcb_get_property_value_length(reply.get())};
}

/// Returns the values of a property of 32-bit numbers.
std::vector<std::uint32_t> numbers(const QByteArray& bytes) {
    std::vector<std::uint32_t> values(static_cast<std::size_t>(bytes.size()) /
                                      sizeof(std::uint32_t));
    if (!values.empty())
        std::memcpy(values.data(), bytes.constData(), values.size() * sizeof(std::uint32_t));
    return values;
}

bool hasExtension(std::string_view name) {
    const auto cookie =
        xcb_query_extension(connection(), static_cast<std::uint16_t>(name.size()), name.data());
    const Reply<xcb_query_extension_reply_t> reply(
        xcb_query_extension_reply(connection(), cookie, nullptr));
    return reply && reply->present != 0;
}

} // namespace

/// Recent servers have the XWAYLAND extension; older ones have outputs of that name.
bool isXwayland() {
    if (!connection())
        return false;
    const auto screens = QGuiApplication::screens();
    return hasExtension("XWAYLAND") || std::ranges::any_of(screens, [](const QScreen* screen) {
               return screen->name().startsWith(QStringLiteral("XWAYLAND"));
           });
}

QString windowManagerName() {
    if (!connection())
        return {};
    const auto check = numbers(property(x11::root(), "_NET_SUPPORTING_WM_CHECK", XCB_ATOM_WINDOW));
    if (check.empty())
        return {};
    return QString::fromUtf8(property(check.front(), "_NET_WM_NAME", atom("UTF8_STRING")));
}

bool isFullscreenAt(const QRect& wanted) {
    if (!connection())
        return false;
    const auto active = numbers(property(x11::root(), "_NET_ACTIVE_WINDOW", XCB_ATOM_WINDOW));
    if (active.empty() || active.front() == XCB_WINDOW_NONE)
        return false;
    const auto states = numbers(property(active.front(), "_NET_WM_STATE", XCB_ATOM_ATOM));
    if (std::ranges::find(states, atom("_NET_WM_STATE_FULLSCREEN")) == states.end())
        return false;
    const auto covered = geometry(active.front());
    return covered && covered->intersects(wanted);
}

bool displayAnswers() {
    xcb_connection_t* const connection = xcb_connect(nullptr, nullptr);
    const bool answers = xcb_connection_has_error(connection) == 0;
    xcb_disconnect(connection);
    return answers;
}

void makeDock(WId window) {
    if (!connection())
        return;
    setProperty(window, "_NET_WM_WINDOW_TYPE", XCB_ATOM_ATOM,
                std::array{atom("_NET_WM_WINDOW_TYPE_DOCK")});
    setProperty(window, "_NET_WM_STATE", XCB_ATOM_ATOM,
                std::array{atom("_NET_WM_STATE_ABOVE"), atom("_NET_WM_STATE_SKIP_TASKBAR"),
                           atom("_NET_WM_STATE_SKIP_PAGER"), atom("_NET_WM_STATE_STICKY")});
    constexpr std::uint32_t kAllDesktops = 0xFFFFFFFF;
    setProperty(window, "_NET_WM_DESKTOP", XCB_ATOM_CARDINAL, std::array{kAllDesktops});
}

void setGeometry(WId window, const QRect& geometry) {
    if (!connection())
        return;
    const std::array values{static_cast<std::uint32_t>(geometry.x()),
                            static_cast<std::uint32_t>(geometry.y()),
                            static_cast<std::uint32_t>(geometry.width()),
                            static_cast<std::uint32_t>(geometry.height())};
    xcb_configure_window(connection(), id(window),
                         XCB_CONFIG_WINDOW_X | XCB_CONFIG_WINDOW_Y | XCB_CONFIG_WINDOW_WIDTH |
                             XCB_CONFIG_WINDOW_HEIGHT,
                         values.data());
    xcb_flush(connection());
}

std::optional<QRect> geometry(WId window) {
    if (!connection())
        return std::nullopt;
    const auto sizeCookie = xcb_get_geometry(connection(), id(window));
    const auto placeCookie = xcb_translate_coordinates(connection(), id(window), x11::root(), 0, 0);
    const Reply<xcb_get_geometry_reply_t> size(
        xcb_get_geometry_reply(connection(), sizeCookie, nullptr));
    const Reply<xcb_translate_coordinates_reply_t> place(
        xcb_translate_coordinates_reply(connection(), placeCookie, nullptr));
    if (!size || !place)
        return std::nullopt;
    return QRect(place->dst_x, place->dst_y, size->width, size->height);
}

void setShape(WId window, const std::optional<std::vector<QRect>>& shape) {
    if (!connection())
        return;
    if (shape)
        setRectangles(window, XCB_SHAPE_SK_BOUNDING, *shape);
    else
        xcb_shape_mask(connection(), XCB_SHAPE_SO_SET, XCB_SHAPE_SK_BOUNDING, id(window), 0, 0,
                       XCB_PIXMAP_NONE);
    xcb_flush(connection());
}

void ignoreInput(WId window) {
    if (!connection())
        return;
    setRectangles(window, XCB_SHAPE_SK_INPUT, {});
    xcb_flush(connection());
}

void raise(WId window) {
    if (!connection())
        return;
    const std::array values{static_cast<std::uint32_t>(XCB_STACK_MODE_ABOVE)};
    xcb_configure_window(connection(), id(window), XCB_CONFIG_WINDOW_STACK_MODE, values.data());
    xcb_flush(connection());
}

} // namespace vexmoor::native
