#include "WindowFixture.h"

#include "ui/AboutPanel.h"
#include "ui/StatsWindow.h"

#include "art/CauldronArt.h"

#include <QDialog>
#include <QMenuBar>

#include <filesystem>

// Renders pictures for visual inspection into VEXMOOR_SCREENSHOT_DIRECTORY.

namespace vexmoor {
namespace {

using namespace test;

class PicturesTest : public WindowFixture, public testing::WithParamInterface<const char*> {
  protected:
    PicturesTest() : WindowFixture(GetParam()) {
        clock.now = utc("2026-11-20 12:00:00");
        feed(std::vector<std::int64_t>(1238, 30'200'000));
        for (const char* const day : {"2026-11-21 12:00:00", "2026-11-22 12:00:00"}) {
            clock.now = utc(day);
            feed(std::vector<std::int64_t>(23, 26'100'000));
        }
        progression.unlockAll();
    }

    static void keep(QWidget& window, const std::string& name) {
        const std::filesystem::path folder = VEXMOOR_SCREENSHOT_DIRECTORY;
        std::filesystem::create_directories(folder);
        const QImage image = window.grab().toImage();
        EXPECT_EQ(image.size(), window.size() * QByteArray(GetParam()).toDouble());
        const auto file = folder / (name + "-" + GetParam() + "x.png");
        EXPECT_TRUE(image.save(QString::fromStdString(file))) << file;
    }
};

TEST_P(PicturesTest, OfTheWindowAndThePanel) {
    const std::pair<const Skin*, DisposeMode> looks[] = {
        {&Skin::iron(), DisposeMode::bin},      {&Skin::cobalt(), DisposeMode::bin},
        {&Skin::lava(), DisposeMode::dissolve}, {&Skin::witchfire(), DisposeMode::dissolve},
        {&Skin::gold(), DisposeMode::bin},      {&Skin::starlight(), DisposeMode::bin},
    };
    StatsWindow window({ledger, settings, progression, clock.clock(), makeTimer()});
    for (const char* const menu : {"&Vexmoor", "&Edit", "&Window"})
        window.menuBar()->addMenu(menu);
    window.show();
    for (const bool dark : {false, true}) {
        QApplication::setPalette(desktopPalette(dark));
        for (const auto& [skin, mode] : looks) {
            progression.select(*skin);
            settings.mode.set(mode);
            CauldronArt::setCurrent(*skin);
            const std::string look = std::string(skin->id) + (dark ? "-dark" : "-light");
            for (const QSize size : {QSize(360, 520), QSize(360, 760), QSize(1000, 700)}) {
                window.resize(size);
                QCoreApplication::processEvents();
                keep(window, "stats-" + look + "-" + std::to_string(size.width()) + "x" +
                                 std::to_string(size.height()));
            }
            showAbout(&window);
            auto* const panel = window.findChild<QDialog*>();
            ASSERT_TRUE(panel);
            QCoreApplication::processEvents();
            keep(*panel, "about-" + look);
            panel->close();
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Scales, PicturesTest, testing::Values("1", "1.25", "2"));

} // namespace
} // namespace vexmoor
