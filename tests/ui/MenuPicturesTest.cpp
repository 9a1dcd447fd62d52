#include "WindowFixture.h"

#include "ui/MenuBar.h"
#include "ui/MenuStats.h"
#include "ui/PopupMenu.h"
#include "ui/PotSilhouette.h"
#include "ui/UpdatePanel.h"

#include "intake/UndoStack.h"

#include <QPainter>

#include <filesystem>

// Renders pictures for visual inspection into VEXMOOR_SCREENSHOT_DIRECTORY.

namespace vexmoor {
namespace {

using namespace test;

class MenuPicturesTest : public WindowFixture, public testing::WithParamInterface<const char*> {
  protected:
    MenuPicturesTest() : WindowFixture(GetParam()) {
        feed(std::vector<std::int64_t>(1238, 30'200'000));
        progression.unlockAll();
        settings.mode.set(DisposeMode::dissolve);
    }

    static void keep(const QImage& image, const std::string& name) {
        const std::filesystem::path folder = VEXMOOR_SCREENSHOT_DIRECTORY;
        std::filesystem::create_directories(folder);
        const auto file = folder / (name + "-" + GetParam() + "x.png");
        EXPECT_TRUE(image.save(QString::fromStdString(file))) << file;
    }
    static QImage pictureOf(QWidget& widget) {
        QPixmap picture(widget.size() * widget.devicePixelRatioF());
        picture.setDevicePixelRatio(widget.devicePixelRatioF());
        picture.fill(QColor(0x8a, 0x90, 0x9c));
        widget.render(&picture);
        return picture.toImage();
    }

    UndoStack undoStack;
};

TEST_P(MenuPicturesTest, OfThePopupInBothDirections) {
    MenuContents contents({ledger, settings, progression, undoStack, clock.clock(),
                           [] { return true; }, [] { return true; }, [] { return false; }});
    const auto header = [this](QWidget* parent) {
        return new MenuStats(ledger, progression, clock.clock(), parent);
    };
    for (const bool dark : {false, true}) {
        QApplication::setPalette(desktopPalette(dark));
        for (const Skin* skin : {&Skin::iron(), &Skin::cobalt()}) {
            for (const auto direction : {Qt::LeftToRight, Qt::RightToLeft}) {
                QApplication::setLayoutDirection(direction);
                progression.select(*skin);
                auto* const menu = new PopupMenu(contents.entries(), header, *skin, true);
                menu->popup({0, 0});
                press(*menu, Qt::Key_Down);
                const std::string look = std::string(skin->id) + (dark ? "-dark" : "-light") +
                                         (direction == Qt::RightToLeft ? "-mirrored" : "");
                keep(pictureOf(*menu), "menu-" + look);
                for (QAction* const action : menu->actions()) {
                    if (action->menu() == nullptr)
                        continue;
                    action->menu()->popup({0, 0});
                    press(*action->menu(), Qt::Key_Down);
                    press(*action->menu(), Qt::Key_Down);
                    keep(pictureOf(*action->menu()),
                         "menu-" + action->text().toLower().replace(' ', '-').toStdString() + "-" +
                             look);
                    action->menu()->close();
                }
                menu->close();
            }
        }
        QApplication::setLayoutDirection(Qt::LeftToRight);
        UpdatePanel panel(Skin::iron(), makeTimer());
        panel.show();
        keep(pictureOf(panel), dark ? "update-panel-dark" : "update-panel-light");
    }
}

TEST_P(MenuPicturesTest, OfThePanelIconOnPanels) {
    QImage picture(1000, 400, QImage::Format_RGB32);
    QPainter painter(&picture);
    int top = 0;
    for (const QColor ground :
         {QColor(Qt::black), QColor(0x2b, 0x2b, 0x30), QColor(0x80, 0x80, 0x84),
          QColor(0xe8, 0xe8, 0xea), QColor(Qt::white)}) {
        painter.fillRect(0, top, 1000, 80, ground);
        int left = 20;
        for (const bool dark : {true, false}) {
            const QIcon icon = panelIcon(MenuBar::icon(), dark);
            for (const int side : {16, 22, 24, 32, 44, 48, 64}) {
                painter.drawPixmap(left, top + (80 - side) / 2,
                                   icon.pixmap(QSize(side, side), 1.0));
                left += side + 20;
            }
            left = 520;
        }
        top += 80;
    }
    painter.end();
    keep(picture, "panel-icon");
}

INSTANTIATE_TEST_SUITE_P(Scales, MenuPicturesTest, testing::Values("1", "2"));

} // namespace
} // namespace vexmoor
