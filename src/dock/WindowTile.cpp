#include "WindowTile.h"

#include "FlameOverlayWindow.h"

namespace vexmoor {

WindowTile::WindowTile(UserDefaults& defaults, TileHandling handling)
    : m_window(defaults, m_compositor, handling) {
    connect(&m_window, &TileWindow::shownChanged, this, &Tile::shownChanged);
    connect(&m_window, &TileWindow::clicked, this, &Tile::clicked);
    connect(&m_window, &TileWindow::listDropped, this, &WindowTile::report);
    connect(&m_window, &TileWindow::menuRequested, this, &Tile::menuRequested);
}

std::unique_ptr<FlameWindow> WindowTile::makeFlames() {
    return std::make_unique<FlameOverlayWindow>(m_compositor);
}

} // namespace vexmoor
