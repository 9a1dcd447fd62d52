#pragma once

#include "ShmBuffers.h"
#include "WaylandConnection.h"

#include <QImage>
#include <QRect>

#include <functional>
#include <optional>

namespace vexmoor::wayland {

/// A surface on the layer above windows and below fullscreen ones. It never has the keyboard's
/// focus. Made, it is not shown yet. Main thread; the connection must outlive it.
class LayerSurface {
  public:
    enum class Input {
        all,  ///< takes the pointer and drops
        none, ///< lets them through
    };
    /// What it is placed in: the output without its panels, or the whole of it.
    enum class Area { withoutPanels, whole };

    struct Events {
        /// It can be shown now: the size of the area, in logical pixels. Once.
        std::function<void(QSize area)> ready;
        /// The compositor took it away: the owner has to destroy it, later.
        std::function<void()> closed;
        /// The compositor prefers so many physical pixels a logical one.
        std::function<void(double scale)> scaled;
    };

    LayerSurface(WaylandConnection& connection, wl_output* output, Input input, Area area,
                 Events events);
    ~LayerSurface();
    LayerSurface(const LayerSurface&) = delete;
    LayerSurface& operator=(const LayerSurface&) = delete;

    /// The corner of the area that it is fixed to, where panels come and go.
    struct Corner {
        bool right = false;
        bool bottom = false;
    };
    /// Where it is in the area from the next picture on, in logical pixels; may reach out of it.
    void place(const QRect& rect, Corner corner);

    /// Shows a picture, of as many pixels as its place has physical ones, at its place; all over
    /// the area without one.
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
    Owned<zwlr_layer_surface_v1> m_layer; // goes before the surface
    std::optional<QSize> m_area;
    QRect m_rect;
    Corner m_corner;
    bool m_isPlaceNew = false;
    std::optional<QImage> m_next; ///< waits until it can be shown
};

} // namespace vexmoor::wayland
