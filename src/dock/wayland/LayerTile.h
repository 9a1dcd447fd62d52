#pragma once

#include "DropTarget.h"
#include "EdgeSurface.h"
#include "LayerFlames.h"
#include "MenuCurtain.h"
#include "Pointer.h"

#include "base/UserDefaults.h"
#include "dock/Tile.h"

#include <memory>
#include <optional>

namespace vexmoor::wayland {

/// The tile as a layer surface of a Wayland compositor. Main thread.
class LayerTile : public Tile {
    Q_OBJECT

  public:
    /// The connection must be able to show a tile. The defaults must outlive it.
    LayerTile(UserDefaults& defaults, std::unique_ptr<WaylandConnection> connection);
    ~LayerTile() override;

    void setIcon(const PixelCanvas& icon) override;
    void show() override;
    [[nodiscard]] bool isVisible() const override { return m_tile.geometry().has_value(); }
    void setBadged(bool badged) override;
    [[nodiscard]] std::optional<QRectF> frame() const override;
    [[nodiscard]] const Screens& screens() const override { return m_screens; }
    [[nodiscard]] std::unique_ptr<FlameWindow> makeFlames() override;

  private:
    void followGeometry();
    void redraw();
    void openMenu(QPointF at);
    void press(Pointer::Button button);
    void move(QPointF at);
    void release(Pointer::Button button);
    void dragTo(QPointF at);
    void endConnection(const QString& reason);
    /// Converts a position in the tile's surface to the compositor's space.
    [[nodiscard]] QPointF global(QPointF at) const;

    UserDefaults& m_defaults;
    std::unique_ptr<WaylandConnection> m_connection;
    LayerScreens m_screens;
    Pointer m_pointer;
    DropTarget m_drops;
    MenuCurtain m_curtain;
    EdgeSurface m_tile;
    /// The surface shown while the tile is dragged. The tile's own surface does not move during the
    /// drag, because compositors differ in the pointer coordinates of a moving surface.
    std::unique_ptr<EdgeSurface> m_dragged;
    TilePicture m_picture;
    TilePlace m_place;
    bool m_wasVisible = false;
    bool m_hasPointer = false;
    QPointF m_pointerAt;
    std::optional<QPointF> m_pressedAt;
};

} // namespace vexmoor::wayland
