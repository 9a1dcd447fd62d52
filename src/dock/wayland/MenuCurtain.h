#pragma once

#include "LayerSurface.h"
#include "Pointer.h"

#include <QObject>
#include <QTimer>

#include <memory>
#include <vector>

namespace vexmoor::wayland {

/// What lies invisibly over the outputs while the tile's menu is open. The menu is a window of the
/// X server, which hears of the pointer only over windows of its own: so the curtain says where the
/// pointer is, for the menu's place, and closes the menu when the user presses elsewhere. Main
/// thread; connection and pointer must outlive it.
class MenuCurtain : public QObject {
    Q_OBJECT

  public:
    MenuCurtain(WaylandConnection& connection, Pointer& pointer);

    /// Covers the outputs. `expected` is where the pointer is among the outputs, in logical pixels;
    /// it is better known in a moment unless that `isExact`.
    void lower(QPointF expected, bool isExact);
    [[nodiscard]] bool isLowered() const { return !m_pieces.empty(); }
    /// The user pressed a button elsewhere than in the menu.
    void press();
    void raise();

  signals:
    /// The pointer is there; the menu opens now or never.
    void lowered(QPointF at);

  private:
    struct Piece {
        const WaylandOutput* output;
        std::unique_ptr<LayerSurface> surface;
    };

    void enter(wl_surface* surface, QPointF at);
    void open(QPointF at);

    WaylandConnection& m_connection;
    std::vector<Piece> m_pieces;
    QTimer m_wait; ///< for the pointer
    QPointF m_expected;
    bool m_isPointerOver = false;
};

} // namespace vexmoor::wayland
