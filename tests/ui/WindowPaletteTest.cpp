#include "WindowFixture.h"

#include "ui/Accent.h"
#include "ui/TextStyle.h"
#include "ui/WindowPalette.h"

namespace vexmoor {
namespace {

using namespace test;

using WindowPaletteTest = WindowFixture;

TEST_F(WindowPaletteTest, IsReadableEverywhere) {
    const std::pair<QPalette::ColorRole, QPalette::ColorRole> pairs[] = {
        {QPalette::Text, QPalette::Base},
        {QPalette::Text, QPalette::AlternateBase},
        {QPalette::WindowText, QPalette::Window},
        {QPalette::ButtonText, QPalette::Button},
        {QPalette::PlaceholderText, QPalette::Base},
        {QPalette::HighlightedText, QPalette::Highlight},
        {QPalette::ToolTipText, QPalette::ToolTipBase},
        {QPalette::Link, QPalette::Base},
        {QPalette::LinkVisited, QPalette::Window},
    };
    for (const bool dark : {false, true}) {
        const QPalette palette = windowPalette(dark);
        EXPECT_EQ(isDark(groundOf(palette)), dark);
        for (const auto group : {QPalette::Active, QPalette::Inactive})
            for (const auto& [text, ground] : pairs)
                EXPECT_GE(contrast(palette.color(group, text), palette.color(group, ground)),
                          kReadable)
                    << dark << ' ' << text << " on " << ground;
        EXPECT_NE(palette.color(QPalette::Disabled, QPalette::Text),
                  palette.color(QPalette::Active, QPalette::Text));
    }
}

TEST_F(WindowPaletteTest, RecoloursOpenWindowsAndKeepsAMatchingPlatformPalette) {
    const QPalette platform = QApplication::palette();
    ASSERT_FALSE(isDark(groundOf(platform)));
    QWidget window;
    window.show();
    const auto ground = [&] {
        QCoreApplication::processEvents();
        return groundOf(window.palette());
    };
    useWindowPalette(true);
    EXPECT_EQ(ground(), groundOf(windowPalette(true)));
    for (const std::optional<bool> choice : {std::optional(false), std::optional<bool>()}) {
        useWindowPalette(true);
        useWindowPalette(choice);
        EXPECT_EQ(QApplication::palette(), platform);
        EXPECT_EQ(ground(), groundOf(platform));
    }
}

} // namespace
} // namespace vexmoor
