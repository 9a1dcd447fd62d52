#include "TileChoice.h"

#include "WindowTile.h"
#include "XwaylandTile.h"

#include "wayland/LayerTile.h"

#include <QGuiApplication>

namespace vexmoor {
namespace {

/// Returns null if there is no Wayland compositor or it does not support layers.
std::unique_ptr<Tile> layerTile(UserDefaults& defaults, const DisplayFacts& facts) {
    const bool isWayland =
        facts.isXwayland || QGuiApplication::platformName() == QStringLiteral("wayland");
    if (!isWayland || qgetenv(kTileVariable) == "xwayland")
        return nullptr;
    auto connection = wayland::WaylandConnection::open();
    if (!connection || !connection->canShowTile())
        return nullptr;
    return std::make_unique<wayland::LayerTile>(defaults, std::move(connection));
}

} // namespace

bool compositorAnswers() {
    return wayland::WaylandConnection::open() != nullptr;
}

std::unique_ptr<Tile> makeTile(UserDefaults& defaults) {
    const DisplayFacts facts = DisplayFacts::ofSession();
    if (auto tile = layerTile(defaults, facts))
        return tile;
    return std::make_unique<WindowTile>(defaults, tileHandling(facts));
}

} // namespace vexmoor
