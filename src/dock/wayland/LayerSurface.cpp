#include "LayerSurface.h"

#include <utility>

namespace vexmoor::wayland {
namespace {

constexpr std::uint32_t kAllEdges = 15;
constexpr double kScaleSteps = 120;
constexpr const char* kScope = "dock"; ///< KWin gives the focus to layers with other names

} // namespace

const zwlr_layer_surface_v1_listener LayerSurface::kListener = {
    .configure =
        [](void* data, zwlr_layer_surface_v1*, std::uint32_t serial, std::uint32_t width,
           std::uint32_t height) {
            static_cast<LayerSurface*>(data)->configure(
                serial, {static_cast<int>(width), static_cast<int>(height)});
        },
    .closed = [](void* data,
                 zwlr_layer_surface_v1*) { static_cast<LayerSurface*>(data)->m_events.closed(); },
};

const wp_fractional_scale_v1_listener LayerSurface::kScaleListener = {
    .preferred_scale = [](void* data, wp_fractional_scale_v1*, std::uint32_t steps) {
        if (steps > 0)
            static_cast<LayerSurface*>(data)->m_events.scaled(steps / kScaleSteps);
    }};

LayerSurface::LayerSurface(WaylandConnection& connection, wl_output* output, Input input, Area area,
                           Events events)
    : m_connection(connection), m_events(std::move(events)), m_buffers(connection.shm()),
      m_surface(wl_compositor_create_surface(connection.compositor())),
      m_viewport(wp_viewporter_get_viewport(connection.viewporter(), m_surface.get())),
      m_layer(zwlr_layer_shell_v1_get_layer_surface(connection.layers(), m_surface.get(), output,
                                                    ZWLR_LAYER_SHELL_V1_LAYER_TOP, kScope)) {
    m_buffers.released = [this] {
        if (auto next = std::exchange(m_next, std::nullopt))
            show(*next);
    };
    zwlr_layer_surface_v1_add_listener(m_layer.get(), &kListener, this);
    if (connection.scales() != nullptr && m_events.scaled) {
        m_scale.reset(wp_fractional_scale_manager_v1_get_fractional_scale(connection.scales(),
                                                                          m_surface.get()));
        wp_fractional_scale_v1_add_listener(m_scale.get(), &kScaleListener, this);
    }
    if (input == Input::none) {
        const Owned<wl_region> nothing(wl_compositor_create_region(connection.compositor()));
        wl_surface_set_input_region(m_surface.get(), nothing.get());
    }
    // Anchored to all edges, the surface receives the size of the area.
    zwlr_layer_surface_v1_set_size(m_layer.get(), 0, 0);
    zwlr_layer_surface_v1_set_anchor(m_layer.get(), kAllEdges);
    zwlr_layer_surface_v1_set_exclusive_zone(m_layer.get(), area == Area::whole ? -1 : 0);
    wl_surface_commit(m_surface.get());
    connection.flush();
}

LayerSurface::~LayerSurface() {
    m_layer.reset();
    m_scale.reset();
    m_viewport.reset();
    m_surface.reset();
    m_connection.flush();
}

void LayerSurface::configure(std::uint32_t serial, QSize size) {
    zwlr_layer_surface_v1_ack_configure(m_layer.get(), serial);
    if (m_area)
        return;
    m_area = size;
    m_events.ready(size);
    if (auto next = std::exchange(m_next, std::nullopt))
        show(*next);
}

void LayerSurface::place(const QRect& rect, Corner corner) {
    m_rect = rect;
    m_corner = corner;
    m_isPlaceNew = true;
}

void LayerSurface::sendPlace() {
    const int right = m_area->width() - m_rect.x() - m_rect.width();
    const int bottom = m_area->height() - m_rect.y() - m_rect.height();
    zwlr_layer_surface_v1_set_size(m_layer.get(), static_cast<std::uint32_t>(m_rect.width()),
                                   static_cast<std::uint32_t>(m_rect.height()));
    zwlr_layer_surface_v1_set_anchor(
        m_layer.get(),
        (m_corner.right ? ZWLR_LAYER_SURFACE_V1_ANCHOR_RIGHT : ZWLR_LAYER_SURFACE_V1_ANCHOR_LEFT) |
            (m_corner.bottom ? ZWLR_LAYER_SURFACE_V1_ANCHOR_BOTTOM
                             : ZWLR_LAYER_SURFACE_V1_ANCHOR_TOP));
    zwlr_layer_surface_v1_set_margin(m_layer.get(), m_corner.bottom ? 0 : m_rect.y(),
                                     m_corner.right ? right : 0, m_corner.bottom ? bottom : 0,
                                     m_corner.right ? 0 : m_rect.x());
    wp_viewport_set_destination(m_viewport.get(), m_rect.width(), m_rect.height());
}

void LayerSurface::show(const QImage& image) {
    wl_buffer* const buffer = m_area ? m_buffers.show(image) : nullptr;
    if (buffer == nullptr) {
        m_next = image;
        return;
    }
    m_next.reset();
    if (std::exchange(m_isPlaceNew, false))
        sendPlace();
    else if (m_rect.isEmpty())
        wp_viewport_set_destination(m_viewport.get(), m_area->width(), m_area->height());
    wl_surface_attach(m_surface.get(), buffer, 0, 0);
    wl_surface_damage_buffer(m_surface.get(), 0, 0, image.width(), image.height());
    wl_surface_commit(m_surface.get());
    m_connection.flush();
}

} // namespace vexmoor::wayland
