#include "VirtualPointer.h"

#include "wlr-virtual-pointer-client-protocol.h"

#include <wayland-client.h>

#include <stdexcept>
#include <string_view>

namespace vexmoor::test {

struct VirtualPointer::Connection {
    wl_display* display = nullptr;
    zwlr_virtual_pointer_manager_v1* manager = nullptr;
    zwlr_virtual_pointer_v1* pointer = nullptr;
};

VirtualPointer::VirtualPointer(const std::string& display, QSize outputs,
                               std::function<void(int)> pause)
    : m_connection(std::make_unique<Connection>()), m_outputs(outputs), m_pause(std::move(pause)) {
    m_connection->display = wl_display_connect(display.c_str());
    if (m_connection->display == nullptr)
        throw std::runtime_error("no compositor at " + display);
    static const wl_registry_listener kListener{
        .global =
            [](void* data, wl_registry* registry, std::uint32_t id, const char* interface,
               std::uint32_t) {
                if (std::string_view(interface) == zwlr_virtual_pointer_manager_v1_interface.name)
                    static_cast<Connection*>(data)->manager =
                        static_cast<zwlr_virtual_pointer_manager_v1*>(wl_registry_bind(
                            registry, id, &zwlr_virtual_pointer_manager_v1_interface, 1));
            },
        .global_remove = [](void*, wl_registry*, std::uint32_t) {},
    };
    wl_registry* const registry = wl_display_get_registry(m_connection->display);
    wl_registry_add_listener(registry, &kListener, m_connection.get());
    wl_display_roundtrip(m_connection->display);
    wl_registry_destroy(registry);
    if (m_connection->manager == nullptr)
        throw std::runtime_error("the compositor has no virtual pointers");
    m_connection->pointer =
        zwlr_virtual_pointer_manager_v1_create_virtual_pointer(m_connection->manager, nullptr);
    wl_display_roundtrip(m_connection->display);
}

VirtualPointer::~VirtualPointer() {
    if (m_connection->pointer != nullptr)
        zwlr_virtual_pointer_v1_destroy(m_connection->pointer);
    if (m_connection->manager != nullptr)
        zwlr_virtual_pointer_manager_v1_destroy(m_connection->manager);
    wl_display_disconnect(m_connection->display);
}

void VirtualPointer::send() {
    zwlr_virtual_pointer_v1_frame(m_connection->pointer);
    wl_display_roundtrip(m_connection->display);
}

void VirtualPointer::move(QPoint to) {
    m_at = to;
    zwlr_virtual_pointer_v1_motion_absolute(
        m_connection->pointer, ++m_time, static_cast<unsigned>(to.x()),
        static_cast<unsigned>(to.y()), static_cast<unsigned>(m_outputs.width()),
        static_cast<unsigned>(m_outputs.height()));
    send();
}

void VirtualPointer::press(Button button) {
    zwlr_virtual_pointer_v1_button(m_connection->pointer, ++m_time, static_cast<unsigned>(button),
                                   WL_POINTER_BUTTON_STATE_PRESSED);
    send();
}

void VirtualPointer::release(Button button) {
    zwlr_virtual_pointer_v1_button(m_connection->pointer, ++m_time, static_cast<unsigned>(button),
                                   WL_POINTER_BUTTON_STATE_RELEASED);
    send();
}

void VirtualPointer::click(QPoint at, Button button) {
    move(at);
    m_pause(60);
    press(button);
    m_pause(60);
    release(button);
}

void VirtualPointer::dragTo(QPoint from, QPoint to) {
    constexpr int kFirstSteps = 10;
    constexpr int kSteps = 12;
    move(from);
    m_pause(100);
    press();
    m_pause(300);
    for (int i = 1; i <= kFirstSteps; ++i) {
        move(from + QPoint(4 * i, 4 * i));
        m_pause(40);
    }
    const QPoint begin = m_at;
    for (int i = 1; i <= kSteps; ++i) {
        move(begin + (to - begin) * i / kSteps);
        m_pause(60);
    }
    m_pause(300);
}

} // namespace vexmoor::test
