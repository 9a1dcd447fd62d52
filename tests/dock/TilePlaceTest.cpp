#include "dock/TilePlace.h"

#include <gtest/gtest.h>

namespace vexmoor {

void PrintTo(const TilePlace& place, std::ostream* out) {
    *out << '"' << place.text() << '"';
}

namespace {

using Edge = TilePlace::Edge;

/// Two screens side by side, the second lower and with high density; the first has a panel at its
/// bottom.
std::vector<PhysicalScreen> screens() {
    return {
        {.name = "DP-1", .geometry = {0, 0, 1280, 800}, .available = {0, 0, 1280, 760}, .ratio = 1},
        {.name = "HDMI 2",
         .geometry = {1280, 200, 2560, 1440},
         .available = {1280, 200, 2560, 1440},
         .ratio = 2}};
}

TEST(TilePlaceTest, IsAtTheEdgeNearestToTheTile) {
    struct Case {
        QRect tile;
        Edge edge;
        std::string screen;
        QRect snapped;
    };
    const Case cases[] = {
        {{600, 600, 100, 100}, Edge::bottom, "DP-1", {600, 660, 100, 100}},
        {{30, 300, 100, 100}, Edge::left, "DP-1", {0, 300, 100, 100}},
        {{1100, 300, 100, 100}, Edge::right, "DP-1", {1180, 300, 100, 100}},
        {{600, 20, 100, 100}, Edge::top, "DP-1", {600, 0, 100, 100}},
        {{1300, 900, 100, 100}, Edge::left, "HDMI 2", {1280, 900, 100, 100}},
        // Dragged past the edge, or outside all screens: moves back inside.
        {{700, 900, 100, 100}, Edge::bottom, "DP-1", {700, 660, 100, 100}},
        {{-900, 5000, 100, 100}, Edge::bottom, "DP-1", {0, 660, 100, 100}},
    };
    for (const Case& c : cases) {
        const TilePlace place = TilePlace::nearest(c.tile, screens());
        EXPECT_EQ(place.edge, c.edge) << c.tile.x() << ", " << c.tile.y();
        EXPECT_EQ(place.screen, c.screen);
        const QRect snapped = place.rect(place.screenOf(screens()), 100);
        EXPECT_EQ(snapped.topLeft(), c.snapped.topLeft()) << snapped.x() << ", " << snapped.y();
        EXPECT_EQ(snapped.size(), c.snapped.size());
    }
}

TEST(TilePlaceTest, StaysOnTheScreenWhenScreensChange) {
    const TilePlace place{.edge = Edge::right, .fraction = 1, .screen = "HDMI 2"};
    EXPECT_EQ(place.rect(place.screenOf(screens()), 204), QRect(3636, 1436, 204, 204));

    std::vector<PhysicalScreen> fewer = screens();
    fewer.pop_back();
    EXPECT_EQ(place.rect(place.screenOf(fewer), 102), QRect(1178, 658, 102, 102))
        << "the same position on the remaining screen";

    fewer.front().available = {10, 10, 50, 50};
    EXPECT_EQ(place.rect(fewer.front(), 102).top(), 10)
        << "a screen that is too small: aligned to its corner";
}

TEST(TilePlaceTest, RoundTripsThroughText) {
    const TilePlace places[] = {
        {.edge = Edge::bottom, .fraction = 0, .screen = ""},
        {.edge = Edge::left, .fraction = 0.25, .screen = "eDP-1"},
        {.edge = Edge::top, .fraction = 1, .screen = "HDMI 2 of three"},
    };
    for (const TilePlace& place : places)
        EXPECT_EQ(TilePlace::fromText(place.text()), place);
    for (const char* text : {"", "bottom", "middle 0.5 DP-1", "left -0.1 DP-1", "left 1.5 DP-1",
                             "left nan DP-1", "left x DP-1", "0.5 left"})
        EXPECT_EQ(TilePlace::fromText(text), std::nullopt) << text;
}

TEST(PhysicalScreenTest, ConvertsExactlyToPointsAndBack) {
    for (const double ratio : {1.0, 1.25, 1.5, 2.0}) {
        const PhysicalScreen screen{
            .name = {}, .geometry = {1920, 40, 2560, 1440}, .available = {}, .ratio = ratio};
        for (const QRect& rect : {QRect(1920, 40, 102, 102), QRect(3333, 777, 170, 136)})
            EXPECT_EQ(screen.physical(screen.points(rect)), rect) << ratio;
    }
    const PhysicalScreen screen{
        .name = {}, .geometry = {100, 100, 1000, 1000}, .available = {}, .ratio = 1.25};
    EXPECT_EQ(screen.points({200, 100, 102, 102}), QRectF(180, 100, 81.6, 81.6));
}

} // namespace
} // namespace vexmoor
