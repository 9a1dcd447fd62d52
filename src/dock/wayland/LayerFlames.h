#pragma once

#include "EdgeSurface.h"

#include "dock/IconSink.h"
#include "dock/Screens.h"

#include <memory>

namespace vexmoor::wayland {

/// The flames above the tile, as a subsurface of the tile's surface. Accepts no input. Main thread;
/// the connection and the tile must outlive it.
class LayerFlames : public FlameWindow {
  public:
    LayerFlames(WaylandConnection& connection, const EdgeSurface& tile)
        : m_connection(connection), m_tile(tile) {}
    ~LayerFlames() override { orderOut(); }

    void showFlame(const PixelCanvas& flame, const DeskRect& frame) override;
    void orderOut() override;

  private:
    struct Part;

    void show(const QImage& image, const QRect& rect);

    WaylandConnection& m_connection;
    const EdgeSurface& m_tile;
    std::shared_ptr<Part> m_part; ///< shared_ptr, because Part is incomplete here
};

/// The outputs as screens; the first one is the primary one. The connection must outlive it.
class LayerScreens : public Screens {
  public:
    explicit LayerScreens(const WaylandConnection& connection) : m_connection(connection) {}
    [[nodiscard]] std::vector<DeskRect> frames() const override;
    /// Converts a rectangle in the compositor's space, in logical pixels.
    [[nodiscard]] DeskRect deskFrame(const QRectF& logical) const;

  private:
    const WaylandConnection& m_connection;
};

} // namespace vexmoor::wayland
