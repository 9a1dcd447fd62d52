#pragma once

#include "ShmBuffers.h"
#include "WaylandConnection.h"

#include <QImage>
#include <QRect>

#include <functional>
#include <optional>

namespace vexmoor::wayland {

/// A surface on the layer between windows and fullscreen windows. It never receives keyboard focus,
/// and is not shown before the first show(). Main thread; the connection must outlive it.
class LayerSurface {
  public:
    enum class Input {
        all,  ///< receives pointer events and drops
        none, ///< passes them to the window below
    };
    /// Whether the surface avoids panels or covers the whole output.
    enum class Area { withoutPanels, whole };

    struct Events {
        /// Called once, when the surface can be shown, with the area's size in logical pixels.
        std::function<void(QSize area)> ready;
        /// Called when the compositor closes the surface. The owner must destroy it after the call.
        std::function<void()> closed;
        /// Called with the compositor's preferred scale, in physical pixels per logical pixel.
        std::function<void(double scale)> scaled;
    };

    LayerSurface(WaylandConnection& connection, wl_output* output, Input input, Area area,
                 Events events);
    ~LayerSurface();
    LayerSurface(const LayerSurface&) = delete;
    LayerSurface& operator=(const LayerSurface&) = delete;

    /// The corner of the area to which the surface is anchored when panels change the area.
    struct Corner {
        bool right = false;
        bool bottom = false;
    };
    /// Sets the rectangle in the area, in logical pixels, from the next picture on. It may extend
    /// beyond the area.
    void place(const QRect& rect, Corner corner);

    /// Shows a picture in the rectangle, or in the whole area if there is none. The picture must
    /// have as many pixels as the rectangle has physical pixels.
    void show(const QImage& image);

    [[nodiscard]] wl_surface* surface() const { return m_surface.get(); }
    [[nodiscard]] bool isReady() const { return m_area.has_value(); }

  private:
    void configure(std::uint32_t serial, QSize size);
    void sendPlace();

    static const zwlr_layer_surface_v1_listener kListener;
    static const wp_fractional_scale_v1_listener kScaleListener;

    WaylandConnection& m_connection;
    Events m_events;
    ShmBuffers m_buffers;
    Owned<wl_surface> m_surface;
    Owned<wp_viewport> m_viewport;
    Owned<wp_fractional_scale_v1> m_scale;
    Owned<zwlr_layer_surface_v1> m_layer; // must be destroyed before the surface
    std::optional<QSize> m_area;
    QRect m_rect;
    Corner m_corner;
    bool m_isPlaceNew = false;
    std::optional<QImage> m_next; ///< pending until the surface can be shown
};

} // namespace vexmoor::wayland
