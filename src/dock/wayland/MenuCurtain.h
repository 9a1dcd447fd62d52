#pragma once

#include "LayerSurface.h"
#include "Pointer.h"

#include <QObject>
#include <QTimer>

#include <memory>
#include <vector>

namespace vexmoor::wayland {

/// Transparent surfaces over all outputs while the tile's menu is open. The menu is an X11 window,
/// and the X server sees the pointer only over its own windows; these surfaces report the pointer's
/// position, at which the menu opens, and close the menu on a press outside it. Main thread; the
/// connection and the pointer must outlive it.
class MenuCurtain : public QObject {
    Q_OBJECT

  public:
    MenuCurtain(WaylandConnection& connection, Pointer& pointer);

    /// Covers the outputs and waits for the pointer's position, unless `expected` is exact.
    /// `expected` is in the compositor's space, in logical pixels.
    void lower(QPointF expected, bool isExact);
    [[nodiscard]] bool isLowered() const { return !m_pieces.empty(); }
    /// Handles a button press outside the menu.
    void press();
    void raise();

  signals:
    /// Emitted with the pointer's position. A slot must open the menu synchronously.
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
    QTimer m_wait; ///< timeout for the pointer's position
    QPointF m_expected;
    bool m_isPointerOver = false;
};

} // namespace vexmoor::wayland
