#include "WaylandConnection.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <string_view>

namespace vexmoor::wayland {
namespace {

template <typename T>
Owned<T> bind(wl_registry* registry, std::uint32_t id, const wl_interface& interface,
              std::uint32_t offered, std::uint32_t known) {
    return Owned<T>(
        static_cast<T*>(wl_registry_bind(registry, id, &interface, std::min(offered, known))));
}

} // namespace

const wl_registry_listener WaylandConnection::kRegistryListener = {
    .global =
        [](void* data, wl_registry*, std::uint32_t id, const char* interface,
           std::uint32_t version) {
            static_cast<WaylandConnection*>(data)->add(id, interface, version);
        },
    .global_remove = [](void* data, wl_registry*,
                        std::uint32_t id) { static_cast<WaylandConnection*>(data)->remove(id); },
};

const wl_seat_listener WaylandConnection::kSeatListener = {
    .capabilities =
        [](void* data, wl_seat*, std::uint32_t capabilities) {
            auto* const self = static_cast<WaylandConnection*>(data);
            self->m_hasPointer = (capabilities & WL_SEAT_CAPABILITY_POINTER) != 0;
            emit self->pointerChanged();
        },
    .name = [](void*, wl_seat*, const char*) {},
};

std::unique_ptr<WaylandConnection> WaylandConnection::open() {
    Owned<wl_display> display(wl_display_connect(nullptr));
    if (!display)
        return nullptr;
    std::unique_ptr<WaylandConnection> made(new WaylandConnection(std::move(display)));
    wl_display* const raw = made->m_display.get();
    // The first roundtrip lists the globals, the second one describes the outputs.
    if (wl_display_roundtrip(raw) < 0)
        return nullptr;
    for (const auto& output : made->m_outputs)
        output->describeBy(made->m_outputDetails.get());
    return wl_display_roundtrip(raw) < 0 ? nullptr : std::move(made);
}

WaylandConnection::WaylandConnection(Owned<wl_display> display)
    : m_display(std::move(display)), m_registry(wl_display_get_registry(m_display.get())) {
    wl_registry_add_listener(m_registry.get(), &kRegistryListener, this);
}

WaylandConnection::~WaylandConnection() = default;

bool WaylandConnection::canShowTile() const {
    return m_compositor && m_subcompositor && m_shm && m_seat && m_dataDevices && m_layers &&
           m_viewporter;
}

void WaylandConnection::add(std::uint32_t id, const char* interface, std::uint32_t version) {
    wl_registry* const registry = m_registry.get();
    const std::string_view name = interface;
    if (name == wl_compositor_interface.name)
        m_compositor = bind<wl_compositor>(registry, id, wl_compositor_interface, version, 4);
    else if (name == wl_shm_interface.name)
        m_shm = bind<wl_shm>(registry, id, wl_shm_interface, version, 1);
    else if (name == wl_subcompositor_interface.name)
        m_subcompositor =
            bind<wl_subcompositor>(registry, id, wl_subcompositor_interface, version, 1);
    else if (name == wl_seat_interface.name && !m_seat) {
        m_seat = bind<wl_seat>(registry, id, wl_seat_interface, version, 3);
        wl_seat_add_listener(m_seat.get(), &kSeatListener, this);
    } else if (name == wl_data_device_manager_interface.name && version >= 3)
        m_dataDevices = bind<wl_data_device_manager>(registry, id, wl_data_device_manager_interface,
                                                     version, 3);
    else if (name == zwlr_layer_shell_v1_interface.name)
        m_layers =
            bind<zwlr_layer_shell_v1>(registry, id, zwlr_layer_shell_v1_interface, version, 4);
    else if (name == wp_viewporter_interface.name)
        m_viewporter = bind<wp_viewporter>(registry, id, wp_viewporter_interface, version, 1);
    else if (name == wp_fractional_scale_manager_v1_interface.name)
        m_scales = bind<wp_fractional_scale_manager_v1>(
            registry, id, wp_fractional_scale_manager_v1_interface, version, 1);
    else if (name == zxdg_output_manager_v1_interface.name)
        m_outputDetails = bind<zxdg_output_manager_v1>(
            registry, id, zxdg_output_manager_v1_interface, version, 3);
    else if (name == wl_output_interface.name && version >= 2) {
        auto output = bind<wl_output>(registry, id, wl_output_interface, version, 4);
        m_outputs.push_back(std::make_unique<WaylandOutput>(id, std::move(output),
                                                            [this] { emit outputsChanged(); }));
        m_outputs.back()->describeBy(m_outputDetails.get());
    }
}

void WaylandConnection::remove(std::uint32_t id) {
    const auto gone = std::ranges::find(m_outputs, id, [](const auto& one) { return one->id(); });
    if (gone == m_outputs.end())
        return;
    const auto kept = std::move(*gone);
    m_outputs.erase(gone);
    emit outputRemoved(kept.get());
    emit outputsChanged();
}

std::vector<const WaylandOutput*> WaylandConnection::outputs() const {
    std::vector<const WaylandOutput*> described;
    for (const auto& output : m_outputs)
        if (output->isDescribed())
            described.push_back(output.get());
    return described;
}

void WaylandConnection::listen() {
    m_notifier.emplace(wl_display_get_fd(m_display.get()), QSocketNotifier::Read);
    connect(&*m_notifier, &QSocketNotifier::activated, this, &WaylandConnection::read);
    flush();
}

void WaylandConnection::read() {
    wl_display* const display = m_display.get();
    while (wl_display_prepare_read(display) != 0)
        if (wl_display_dispatch_pending(display) < 0)
            return fail();
    if (wl_display_read_events(display) < 0 || wl_display_dispatch_pending(display) < 0)
        return fail();
    flush();
}

/// Requests that do not fit into the socket's buffer are sent after the next events.
void WaylandConnection::flush() {
    if (wl_display_flush(m_display.get()) < 0 && errno != EAGAIN)
        fail();
}

void WaylandConnection::fail() {
    if (!m_notifier || !m_notifier->isEnabled())
        return;
    m_notifier->setEnabled(false);
    emit lost(QString::fromLocal8Bit(std::strerror(wl_display_get_error(m_display.get()))));
}

} // namespace vexmoor::wayland
