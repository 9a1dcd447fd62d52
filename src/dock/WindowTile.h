#pragma once

#include "Compositor.h"
#include "Tile.h"
#include "TileWindow.h"

namespace vexmoor {

/// The tile as a Qt window. Main thread.
class WindowTile : public Tile {
    Q_OBJECT

  public:
    /// The defaults must outlive it.
    WindowTile(UserDefaults& defaults, TileHandling handling);

    void setIcon(const PixelCanvas& icon) override { m_window.setIcon(icon); }
    void show() override { m_window.show(); }
    [[nodiscard]] bool isVisible() const override { return m_window.isVisible(); }
    void setBadged(bool badged) override { m_window.setBadged(badged); }
    [[nodiscard]] std::optional<QRectF> frame() const override { return m_window.frame(); }
    [[nodiscard]] const Screens& screens() const override { return m_screens; }
    [[nodiscard]] std::unique_ptr<FlameWindow> makeFlames() override;

    TileWindow& window() { return m_window; }

  private:
    Compositor m_compositor;
    SessionScreens m_screens;
    TileWindow m_window;
};

} // namespace vexmoor
