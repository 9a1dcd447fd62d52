#include "TilePlace.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <locale>
#include <sstream>

namespace vexmoor {
namespace {

constexpr std::array<std::string_view, 4> kEdgeNames{"bottom", "left", "right", "top"};

bool isUpright(TilePlace::Edge edge) {
    return edge == TilePlace::Edge::left || edge == TilePlace::Edge::right;
}

double fractionOf(int offset, int room) {
    return room > 0 ? std::clamp(static_cast<double>(offset) / room, 0.0, 1.0) : 0.0;
}

} // namespace

TilePlace TilePlace::nearest(const QRect& tile, const std::vector<PhysicalScreen>& screens) {
    const PhysicalScreen& screen = nearestScreen(screens, tile.center());
    const QRect& area = screen.available;
    const std::array distances{area.bottom() - tile.bottom(), tile.left() - area.left(),
                               area.right() - tile.right(), tile.top() - area.top()};
    const auto least = std::ranges::min_element(distances) - distances.begin();
    TilePlace place{.edge = static_cast<Edge>(least), .screen = screen.name.toStdString()};
    place.fraction = isUpright(place.edge)
                         ? fractionOf(tile.top() - area.top(), area.height() - tile.height())
                         : fractionOf(tile.left() - area.left(), area.width() - tile.width());
    return place;
}

const PhysicalScreen& TilePlace::screenOf(const std::vector<PhysicalScreen>& screens) const {
    const auto own =
        std::ranges::find(screens, QString::fromStdString(screen), &PhysicalScreen::name);
    return own != screens.end() ? *own : screens.front();
}

QRect TilePlace::rect(const PhysicalScreen& on, int side) const {
    const QRect& area = on.available;
    const auto along = [this, side](int start, int length) {
        return start + static_cast<int>(std::lround(fraction * std::max(0, length - side)));
    };
    QRect tile(along(area.left(), area.width()), along(area.top(), area.height()), side, side);
    switch (edge) {
    case Edge::bottom:
        tile.moveBottom(area.bottom());
        break;
    case Edge::left:
        tile.moveLeft(area.left());
        break;
    case Edge::right:
        tile.moveRight(area.right());
        break;
    case Edge::top:
        tile.moveTop(area.top());
        break;
    }
    return tile;
}

std::string TilePlace::text() const {
    std::ostringstream out;
    out.imbue(std::locale::classic());
    out << kEdgeNames[static_cast<std::size_t>(edge)] << ' ' << fraction << ' ' << screen;
    return out.str();
}

std::optional<TilePlace> TilePlace::fromText(std::string_view text) {
    std::istringstream in{std::string(text)};
    in.imbue(std::locale::classic());
    std::string edge;
    TilePlace place;
    if (!(in >> edge >> place.fraction) || !(place.fraction >= 0 && place.fraction <= 1))
        return std::nullopt;
    const auto name = std::ranges::find(kEdgeNames, edge);
    if (name == kEdgeNames.end())
        return std::nullopt;
    place.edge = static_cast<Edge>(name - kEdgeNames.begin());
    in.ignore(1);
    std::getline(in, place.screen);
    return place;
}

} // namespace vexmoor
