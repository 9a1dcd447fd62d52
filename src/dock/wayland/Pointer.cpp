#include "Pointer.h"

#include <algorithm>
#include <cmath>

namespace vexmoor::wayland {
namespace {

constexpr int kUsualSize = 24;

Pointer* self(void* data) {
    return static_cast<Pointer*>(data);
}

QPointF point(wl_fixed_t x, wl_fixed_t y) {
    return {wl_fixed_to_double(x), wl_fixed_to_double(y)};
}

/// Converts a Linux input event code.
Pointer::Button buttonOf(std::uint32_t code) {
    constexpr std::uint32_t kLeft = 0x110;
    constexpr std::uint32_t kRight = 0x111;
    if (code == kLeft)
        return Pointer::Button::left;
    return code == kRight ? Pointer::Button::right : Pointer::Button::other;
}

} // namespace

const wl_pointer_listener Pointer::kListener = [] {
    wl_pointer_listener listener{};
    listener.enter = [](void* data, wl_pointer*, std::uint32_t serial, wl_surface* surface,
                        wl_fixed_t x, wl_fixed_t y) {
        self(data)->showCursor(serial);
        emit self(data)->entered(surface, point(x, y));
    };
    listener.leave = [](void* data, wl_pointer*, std::uint32_t, wl_surface* surface) {
        emit self(data)->left(surface);
    };
    listener.motion = [](void* data, wl_pointer*, std::uint32_t, wl_fixed_t x, wl_fixed_t y) {
        emit self(data)->moved(point(x, y));
    };
    listener.button = [](void* data, wl_pointer*, std::uint32_t, std::uint32_t,
                         std::uint32_t button, std::uint32_t state) {
        if (state == WL_POINTER_BUTTON_STATE_PRESSED)
            emit self(data)->pressed(buttonOf(button));
        else
            emit self(data)->released(buttonOf(button));
    };
    listener.axis = [](void*, wl_pointer*, std::uint32_t, std::uint32_t, wl_fixed_t) {};
    return listener;
}();

Pointer::Pointer(WaylandConnection& connection) : m_connection(connection) {
    connect(&connection, &WaylandConnection::pointerChanged, this, &Pointer::follow);
    follow();
}

Pointer::~Pointer() = default;

void Pointer::follow() {
    const bool has = m_connection.hasPointer();
    if (has == static_cast<bool>(m_pointer))
        return;
    m_pointer.reset(has ? wl_seat_get_pointer(m_connection.seat()) : nullptr);
    if (m_pointer)
        wl_pointer_add_listener(m_pointer.get(), &kListener, this);
    m_connection.flush();
}

void Pointer::setScale(double scale) {
    const int whole = static_cast<int>(std::ceil(scale));
    if (whole == m_scale)
        return;
    m_scale = whole;
    m_theme.reset();
}

/// Sets the cursor. Without one, the pointer would keep the cursor of the previous program.
void Pointer::showCursor(std::uint32_t serial) {
    if (!m_theme) {
        const int size = qEnvironmentVariableIntValue("XCURSOR_SIZE");
        m_theme.reset(wl_cursor_theme_load(qgetenv("XCURSOR_THEME").constData(),
                                           (size > 0 ? size : kUsualSize) * m_scale,
                                           m_connection.shm()));
    }
    wl_cursor* cursor = m_theme ? wl_cursor_theme_get_cursor(m_theme.get(), "default") : nullptr;
    if (m_theme && cursor == nullptr)
        cursor = wl_cursor_theme_get_cursor(m_theme.get(), "left_ptr");
    if (cursor == nullptr || cursor->image_count == 0)
        return;
    const wl_cursor_image& image = *cursor->images[0];
    if (!m_cursor)
        m_cursor.reset(wl_compositor_create_surface(m_connection.compositor()));
    wl_surface_set_buffer_scale(m_cursor.get(), m_scale);
    wl_surface_attach(m_cursor.get(), wl_cursor_image_get_buffer(cursor->images[0]), 0, 0);
    wl_surface_damage_buffer(m_cursor.get(), 0, 0, static_cast<int>(image.width),
                             static_cast<int>(image.height));
    wl_surface_commit(m_cursor.get());
    wl_pointer_set_cursor(m_pointer.get(), serial, m_cursor.get(),
                          static_cast<int>(image.hotspot_x) / m_scale,
                          static_cast<int>(image.hotspot_y) / m_scale);
}

} // namespace vexmoor::wayland
