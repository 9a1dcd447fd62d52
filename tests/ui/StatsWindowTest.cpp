#include "WindowFixture.h"

#include "ui/Accent.h"
#include "ui/AccentButton.h"
#include "ui/CauldronView.h"
#include "ui/DissolveBadge.h"
#include "ui/Figure.h"
#include "ui/StatsWindow.h"

#include "support/MainLoop.h"

#include <QAccessible>
#include <QMenuBar>

#include <gmock/gmock.h>

namespace vexmoor {
namespace {

using namespace test;

struct StatsWindowTest : WindowFixture {
    StatsWindow window{ledger, settings, progression, clock.clock(), makeTimer()};

    /// What a screen reader says of all that can be read, in the order of the window.
    [[nodiscard]] QStringList readAloud() const {
        QStringList names;
        for (const QWidget* const widget : window.findChildren<QWidget*>()) {
            auto* const face = QAccessible::queryAccessibleInterface(const_cast<QWidget*>(widget));
            if (const QString name = face ? face->text(QAccessible::Name) : QString();
                !name.isEmpty() && !widget->isHidden())
                names << name;
        }
        return names;
    }
    [[nodiscard]] QImage picture() { return window.grab().toImage(); }
    [[nodiscard]] bool holds(QRgb colour) {
        const QImage image = picture();
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                if (image.pixel(x, y) == colour)
                    return true;
        return false;
    }
    [[nodiscard]] int running() const {
        return static_cast<int>(std::ranges::count_if(
            timers, [](const ManualTimer* timer) { return timer->fire != nullptr; }));
    }
};

TEST_F(StatsWindowTest, TellsEverythingToAScreenReader) {
    progression.reset();
    EXPECT_THAT(readAloud(),
                testing::UnorderedElementsAre("Iron cauldron", "0 sacrifices", "Zero KB consumed",
                                              "0 day streak", "Today: 0 items, Zero KB",
                                              "0 of 19 achievements", "Test the flames"));
    EXPECT_EQ(window.windowTitle(), "Vexmoor");
}

TEST_F(StatsWindowTest, FollowsTheStoresAtOnce) {
    feed(std::vector<std::int64_t>(1284, 30'000'000));
    EXPECT_TRUE(readAloud().contains("1,284 sacrifices"));
    EXPECT_TRUE(readAloud().contains("38.52 GB consumed"));
    EXPECT_TRUE(readAloud().contains("1 day streak"));
    EXPECT_TRUE(readAloud().contains("Today: 1,284 items, 38.52 GB"));
    EXPECT_FALSE(readAloud().contains("Dissolving forever"));
    settings.mode.set(DisposeMode::dissolve);
    EXPECT_TRUE(readAloud().contains("Dissolving forever"));
    settings.mode.set(DisposeMode::bin);
    EXPECT_FALSE(readAloud().contains("Dissolving forever"));
}

TEST_F(StatsWindowTest, TakesTheColoursOfTheSkinAndOfTheDesktop) {
    progression.unlockAll();
    window.show();
    for (const bool dark : {false, true}) {
        QApplication::setPalette(desktopPalette(dark));
        QCoreApplication::processEvents();
        const QColor ground = desktopPalette(dark).color(QPalette::Base);
        EXPECT_EQ(picture().pixelColor(1, 1), ground);
        for (const Skin* skin : {&Skin::cobalt(), &Skin::witchfire()}) {
            const QRgb accent = Accent::of(*skin, ground).colour.rgb();
            EXPECT_FALSE(holds(accent) && !dark) << skin->id;
            progression.select(*skin);
            EXPECT_TRUE(holds(accent)) << skin->id;
            EXPECT_TRUE(readAloud().contains(QString(skin->name.data()) + " cauldron"));
        }
    }
}

TEST_F(StatsWindowTest, TurnsToANewDayByItself) {
    feed({1000});
    window.show();
    clock.now = utc("2026-11-23 00:00:01");
    for (ManualTimer* const timer : timers)
        timer->fire();
    EXPECT_TRUE(readAloud().contains("Today: 0 items, Zero KB"));
    EXPECT_TRUE(readAloud().contains("1 sacrifice"));
    window.hide();
    feed({1000});
    clock.now = utc("2026-11-24 00:00:01");
    window.show();
    EXPECT_TRUE(readAloud().contains("Today: 0 items, Zero KB"));
}

TEST_F(StatsWindowTest, RunsNoTimerWhileItIsHidden) {
    EXPECT_EQ(running(), 0);
    window.show();
    EXPECT_EQ(running(), static_cast<int>(timers.size()));
    window.hide();
    EXPECT_EQ(running(), 0);
}

TEST_F(StatsWindowTest, TestsTheFlamesByPointerAndByKeyboard) {
    int asked = 0;
    QObject::connect(&window, &StatsWindow::testFlamesRequested, &window, [&asked] { ++asked; });
    window.show();
    auto* const button = window.findChild<AccentButton*>();
    button->click();
    EXPECT_EQ(asked, 1);
    window.activateWindow();
    ASSERT_TRUE(eventuallyInLoop([button] { return button->hasFocus(); })) << "the first stop";
    const QImage plain = button->grab().toImage();
    press(*button, Qt::Key_Tab);
    EXPECT_TRUE(button->hasFocus());
    EXPECT_NE(button->grab().toImage(), plain) << "there is a ring";
    press(*button, Qt::Key_Space);
    press(*button, Qt::Key_Return);
    EXPECT_EQ(asked, 3);
}

TEST_F(StatsWindowTest, ThePotIsCrispAndBetweenBadgeAndFiguresAtEverySize) {
    window.menuBar()->addMenu("Vexmoor");
    EXPECT_EQ(window.size(), QSize(360, 760));
    window.show();
    const QWidget* const content = window.centralWidget();
    const auto placeOf = [content](const QWidget* widget) {
        return QRect(widget->mapTo(content, QPoint()), widget->size());
    };
    const auto* const pot = window.findChild<CauldronView*>();
    struct Case {
        QSize size;
        int least;
        int most;
    };
    for (const auto& [size, least, most] :
         {Case{{360, 760}, 238, 272}, Case{{360, 1400}, 272, 272}, Case{{100, 100}, 136, 238},
          Case{{1000, 700}, 204, 340}, Case{{2000, 1400}, 340, 340}}) {
        SCOPED_TRACE(size.height());
        window.resize(size);
        EXPECT_GE(content->width(), 360);
        EXPECT_GE(content->height(), 520);
        EXPECT_EQ(pot->width() % 34, 0);
        EXPECT_GE(pot->width(), least);
        EXPECT_LE(pot->width(), most);
        const QRect place = placeOf(pot);
        EXPECT_LE(std::abs(place.center().x() - content->rect().center().x()), 1);
        EXPECT_GT(place.top(), placeOf(window.findChild<DissolveBadge*>()).bottom());
        for (const auto* const figure : window.findChildren<Figure*>())
            EXPECT_GT(placeOf(figure).top(), place.bottom());
        EXPECT_LT(placeOf(window.findChild<AccentButton*>()).bottom(), content->height());
    }
}

TEST_F(StatsWindowTest, NothingMovesWhenTheModeChanges) {
    window.show();
    const auto* const pot = window.findChild<CauldronView*>();
    const QRect before(pot->mapTo(&window, QPoint()), pot->size());
    settings.mode.set(DisposeMode::dissolve);
    QCoreApplication::processEvents();
    EXPECT_EQ(QRect(pot->mapTo(&window, QPoint()), pot->size()), before);
}

} // namespace
} // namespace vexmoor
