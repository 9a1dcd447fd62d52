#include "Screen.h"

#include "support/PaintRoot.h"

#define explicit explicit_ // a member name in the header
#include <xcb/xkb.h>
#undef explicit

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <memory>
#include <stdexcept>

namespace vexmoor::test {
namespace {

struct Free {
    void operator()(void* memory) const { std::free(memory); }
};
template <typename T>
std::unique_ptr<T, Free> owned(T* reply) {
    return std::unique_ptr<T, Free>(reply);
}

/// Returns the values of a property of 32-bit numbers.
std::vector<std::uint32_t> numbersIn(const std::string& bytes) {
    std::vector<std::uint32_t> numbers(bytes.size() / sizeof(std::uint32_t));
    if (!numbers.empty())
        std::memcpy(numbers.data(), bytes.data(), numbers.size() * sizeof(std::uint32_t));
    return numbers;
}

} // namespace

Screen::Screen(const std::string& display) : m_x(xcb_connect(display.c_str(), nullptr)) {
    if (xcb_connection_has_error(m_x) != 0)
        throw std::runtime_error("no connection to " + display);
    m_screen = xcb_setup_roots_iterator(xcb_get_setup(m_x)).data;
}

Screen::~Screen() {
    xcb_disconnect(m_x);
}

void Screen::fill(QColor colour) {
    paintRoot(m_x, colour.rgb());
}

QImage Screen::picture() const {
    const int width = m_screen->width_in_pixels;
    const int height = m_screen->height_in_pixels;
    const auto reply = owned(xcb_get_image_reply(
        m_x,
        xcb_get_image(m_x, XCB_IMAGE_FORMAT_Z_PIXMAP, m_screen->root, 0, 0,
                      m_screen->width_in_pixels, m_screen->height_in_pixels, ~0U),
        nullptr));
    if (!reply)
        throw std::runtime_error("the screen cannot be read");
    const QImage shared(xcb_get_image_data(reply.get()), width, height, QImage::Format_RGB32);
    return shared.copy();
}

void Screen::keepPicture(const std::string& name, const QRect& part) const {
    const std::filesystem::path folder = VEXMOOR_SCREENSHOT_DIRECTORY;
    std::filesystem::create_directories(folder);
    const QString file = QString::fromStdString(folder / (name + ".png"));
    const QImage whole = picture();
    if (!(part.isNull() ? whole : whole.copy(part)).save(file))
        throw std::runtime_error("cannot write " + file.toStdString());
}

std::vector<SeenWindow> Screen::windows() const {
    std::vector<SeenWindow> result;
    for (const auto window : numbersIn(property(m_screen->root, "_NET_CLIENT_LIST_STACKING")))
        if (auto managed = seen(window, true))
            result.push_back(*std::move(managed));
    const auto tree =
        owned(xcb_query_tree_reply(m_x, xcb_query_tree(m_x, m_screen->root), nullptr));
    const xcb_window_t* const children = xcb_query_tree_children(tree.get());
    for (int i = 0; i < xcb_query_tree_children_length(tree.get()); ++i)
        if (auto free = seen(children[i], false))
            result.push_back(*std::move(free));
    return result;
}

std::optional<SeenWindow>
Screen::find(const std::function<bool(const SeenWindow&)>& isWanted) const {
    const auto all = windows();
    const auto found = std::find_if(all.begin(), all.end(), isWanted);
    return found == all.end() ? std::nullopt : std::optional(*found);
}

std::optional<SeenWindow> Screen::active() const {
    const auto window = numbersIn(property(m_screen->root, "_NET_ACTIVE_WINDOW"));
    return window.empty() ? std::nullopt : seen(window.front(), true);
}

void Screen::watchLaunches() {
    constexpr std::uint32_t kProperties = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_change_window_attributes(m_x, m_screen->root, XCB_CW_EVENT_MASK, &kProperties);
    xcb_flush(m_x);
}

void Screen::watchBells() {
    m_bellEvent = xcb_get_extension_data(m_x, &xcb_xkb_id)->first_event;
    (void)owned(xcb_xkb_use_extension_reply(
        m_x, xcb_xkb_use_extension(m_x, XCB_XKB_MAJOR_VERSION, XCB_XKB_MINOR_VERSION), nullptr));
    constexpr auto kBells = XCB_XKB_EVENT_TYPE_BELL_NOTIFY;
    xcb_xkb_select_events(m_x, XCB_XKB_ID_USE_CORE_KBD, kBells, 0, kBells, 0, 0, nullptr);
    xcb_flush(m_x);
}

bool Screen::hasBeeped() {
    readEvents();
    return m_hasBeeped;
}

std::string Screen::launchMessages() {
    readEvents();
    return m_launchMessages;
}

void Screen::readEvents() {
    while (const auto event = owned(xcb_poll_for_event(m_x))) {
        const auto* const message =
            reinterpret_cast<const xcb_client_message_event_t*>(event.get());
        const int kind = event->response_type & 0x7f; // without the flag for events sent by clients
        if (kind == XCB_CLIENT_MESSAGE && message->format == 8)
            m_launchMessages.append(reinterpret_cast<const char*>(message->data.data8),
                                    sizeof message->data.data8);
        m_hasBeeped = m_hasBeeped || (m_bellEvent != 0 && kind == m_bellEvent);
    }
}

xcb_atom_t Screen::atom(const char* name) const {
    const auto reply = owned(xcb_intern_atom_reply(
        m_x, xcb_intern_atom(m_x, 0, static_cast<std::uint16_t>(std::strlen(name)), name),
        nullptr));
    return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

std::string Screen::property(xcb_window_t window, const char* name) const {
    constexpr std::uint32_t kLongest = 4096; // in units of four bytes
    const auto reply = owned(xcb_get_property_reply(
        m_x, xcb_get_property(m_x, 0, window, atom(name), XCB_ATOM_ANY, 0, kLongest), nullptr));
    if (!reply)
        return {};
    return {static_cast<const char*>(xcb_get_property_value(reply.get())),
            static_cast<std::size_t>(xcb_get_property_value_length(reply.get()))};
}

/// Returns nullopt if the window is gone, hidden, or the window manager's own.
std::optional<SeenWindow> Screen::seen(xcb_window_t window, bool isManaged) const {
    const auto attributes = owned(
        xcb_get_window_attributes_reply(m_x, xcb_get_window_attributes(m_x, window), nullptr));
    const auto geometry =
        owned(xcb_get_geometry_reply(m_x, xcb_get_geometry(m_x, window), nullptr));
    const auto corner = owned(xcb_translate_coordinates_reply(
        m_x, xcb_translate_coordinates(m_x, window, m_screen->root, 0, 0), nullptr));
    if (!attributes || !geometry || !corner || attributes->map_state != XCB_MAP_STATE_VIEWABLE ||
        (!isManaged && attributes->override_redirect == 0))
        return std::nullopt;
    SeenWindow result;
    result.id = window;
    result.title = property(window, "_NET_WM_NAME");
    const std::string names = property(window, "WM_CLASS"); // two names, each followed by a zero
    const auto first = names.find('\0');
    if (first == std::string::npos) // a frame of the window manager
        return std::nullopt;
    result.className = names.c_str() + first + 1;
    result.frame = {corner->dst_x, corner->dst_y, geometry->width, geometry->height};
    const auto types = numbersIn(property(window, "_NET_WM_WINDOW_TYPE"));
    const auto isOf = [&](const char* type) {
        return std::find(types.begin(), types.end(), atom(type)) != types.end();
    };
    result.isDock = isOf("_NET_WM_WINDOW_TYPE_DOCK");
    result.isDialog = isOf("_NET_WM_WINDOW_TYPE_DIALOG");
    result.isManaged = isManaged;
    return result;
}

int countOf(const QImage& picture, const std::vector<QRgb>& colours) {
    int count = 0;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            count += std::count(colours.begin(), colours.end(), picture.pixel(x, y)) > 0 ? 1 : 0;
    return count;
}

} // namespace vexmoor::test
