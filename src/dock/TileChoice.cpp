#include "TileChoice.h"

#include "WindowTile.h"

#include "wayland/LayerTile.h"

#include <QGuiApplication>

#include <utility>

namespace vexmoor {
namespace {

using Reason = TileChoice::Reason;

/// The connection is null unless the compositor shows the tile.
std::pair<TileChoice, std::unique_ptr<wayland::WaylandConnection>> choose() {
    TileChoice choice{.facts = DisplayFacts::ofSession()};
    const bool isWayland =
        choice.facts.isXwayland || QGuiApplication::platformName() == QStringLiteral("wayland");
    if (!isWayland)
        return {choice, nullptr};
    if (qgetenv(kTileVariable) == "xwayland") {
        choice.reason = Reason::isWanted;
        return {choice, nullptr};
    }
    auto connection = wayland::WaylandConnection::open();
    if (!connection || !connection->canShowTile()) {
        choice.reason = Reason::compositorLacksLayers;
        return {choice, nullptr};
    }
    choice.reason = Reason::compositorHasLayers;
    return {choice, std::move(connection)};
}

} // namespace

bool compositorAnswers() {
    return wayland::WaylandConnection::open() != nullptr;
}

TileChoice TileChoice::forSession() {
    return choose().first;
}

std::unique_ptr<Tile> makeTile(UserDefaults& defaults) {
    auto [choice, connection] = choose();
    if (connection)
        return std::make_unique<wayland::LayerTile>(defaults, std::move(connection));
    return std::make_unique<WindowTile>(defaults, tileHandling(choice.facts));
}

} // namespace vexmoor
