#include "dock/XwaylandTile.h"

#include <gtest/gtest.h>

namespace vexmoor {
namespace {

using Manager = TileHandling::Manager;

TEST(XwaylandTileTest, IsShownAsTheCompositorRequires) {
    struct Case {
        DisplayFacts facts;
        TileHandling expected;
    };
    for (const auto& [facts, expected] : {
             Case{{false, "Openbox", "GNOME"}, {Manager::windowManager, false}},
             Case{{false, "KWin", "KDE"}, {Manager::windowManager, false}},
             Case{{true, "GNOME Shell", "ubuntu:GNOME"}, {Manager::windowManager, true}},
             Case{{true, "Mutter (Gala)", "Pantheon"}, {Manager::windowManager, true}},
             Case{{true, "KWin", ""}, {Manager::windowManagerWithFocus, true}},
             Case{{true, "", "KDE"}, {Manager::windowManagerWithFocus, true}},
             Case{{true, "wlroots wm", "GNOME"}, {Manager::none, true}},
             Case{{true, "Something", "NOT-GNOME:Else"}, {Manager::none, true}},
             Case{{true, "", ""}, {Manager::none, true}},
         }) {
        EXPECT_EQ(tileHandling(facts), expected)
            << facts.windowManager.toStdString() << ", " << facts.currentDesktop.toStdString();
    }
}

} // namespace
} // namespace vexmoor
