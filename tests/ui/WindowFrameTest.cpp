#include "WindowFixture.h"

#include "ui/WindowFrame.h"

#include "support/MainLoop.h"

#include <QScreen>

namespace vexmoor {
namespace {

using namespace test;

constexpr auto kKey = "window.Vexmoor";

TEST(FittedTest, LimitsTheSizeAndMovesMinimally) {
    const QRect visible(100, 50, 800, 600); // extends to 900, 650
    struct Case {
        const char* what;
        QRect window;
        QRect expected;
    };
    for (const auto& [what, window, expected] : {
             Case{"inside", {200, 100, 360, 500}, {200, 100, 360, 500}},
             Case{"exactly", visible, visible},
             Case{"touching the far corner", {540, 150, 360, 500}, {540, 150, 360, 500}},
             Case{"one beyond the far corner", {541, 151, 360, 500}, {540, 150, 360, 500}},
             Case{"beyond the near corner", {-40, -70, 360, 500}, {100, 50, 360, 500}},
             Case{"far away", {5000, -5000, 360, 500}, {540, 50, 360, 500}},
             Case{"too tall", {200, 20, 360, 760}, {200, 50, 360, 600}},
             Case{"too tall and low", {200, 400, 360, 760}, {200, 50, 360, 600}},
             Case{"too wide", {300, 100, 1920, 500}, {100, 100, 800, 500}},
             Case{"too large", {-10, -10, 1920, 1080}, visible},
         })
        EXPECT_EQ(fitted(window, visible), expected) << what;
    EXPECT_EQ(fitted({5, 5, 10, 10}, QRect()), QRect(5, 5, 10, 10)) << "there is no screen";
}

struct WindowFrameTest : WindowFixture {
    const QRect visible = QGuiApplication::primaryScreen()->availableGeometry();

    /// Returns the frame's corner and the client size.
    static QRect placeOf(const QWidget& window) { return {window.pos(), window.size()}; }
    static void place(QWidget& window, const QRect& place) {
        window.resize(place.size());
        window.move(place.topLeft());
    }

    /// Returns the geometry that a window restores.
    QRect restored() {
        QWidget window;
        const WindowFrame frame(window, defaults);
        return placeOf(window);
    }
    QRect restored(UserDefaults::Value stored) {
        defaults.assign(kKey, std::move(stored));
        return restored();
    }
};

TEST_F(WindowFrameTest, RestoresTheStoredGeometry) {
    EXPECT_EQ(restored("10 20 360 520"), QRect(10, 20, 360, 520));
    EXPECT_EQ(restored("-30 20 360 520"), QRect(0, 20, 360, 520));
    EXPECT_EQ(restored("20000 -20000 30000 30000"), visible) << "stored on a larger screen";
}

TEST_F(WindowFrameTest, IsCentredWithoutValidStoredGeometry) {
    struct Wanting : QWidget {
        [[nodiscard]] QSize sizeHint() const override { return {300, 400}; }
    };
    const auto centred = [this] {
        Wanting window;
        const WindowFrame frame(window, defaults);
        const QPoint off = window.frameGeometry().center() - visible.center();
        return window.size() == QSize(300, 400) && off.manhattanLength() <= 2;
    };
    EXPECT_TRUE(centred());
    for (const UserDefaults::Value& nonsense : std::initializer_list<UserDefaults::Value>{
             std::string(), std::string("10 20 360"), std::string("10 20 360 520 1"),
             std::string("10 20 360 520x"), std::string("10,20,360,520"), std::string("a b c d"),
             std::string("10 20 0 520"), std::string("10 20 360 -520"),
             std::string("10 20 360 99999999999999999999"), std::string("10 20 2147483647 520"),
             std::string("-2147483648 20 360 520"), std::string("40000 20 360 520"),
             std::string("nan 20 360 520"), std::string("1e3 20 360 520"),
             std::string("10 20 360 520\0 1", 15), std::string(100000, '1'), std::int64_t{7}, true,
             UserDefaults::Data{"10 20 360 520"}}) {
        defaults.assign(kKey, nonsense);
        EXPECT_TRUE(centred()) << testing::PrintToString(nonsense);
    }
}

TEST_F(WindowFrameTest, StoresOnceAfterManyMoves) {
    QWidget window;
    WindowFrame frame(window, defaults);
    window.show();
    QCoreApplication::processEvents();
    const int before = defaults.commits();
    for (int step = 1; step <= 100; ++step)
        place(window, {step, 2 * step, 300 + step, 200 + step});
    EXPECT_EQ(defaults.commits(), before) << "not at each step";
    ASSERT_TRUE(eventuallyInLoop([&] { return defaults.commits() > before; }));
    EXPECT_EQ(defaults.commits(), before + 1);
    EXPECT_EQ(restored(), QRect(100, 200, 400, 300));
}

TEST_F(WindowFrameTest, StoresWhenTheWindowIsHidden) {
    QWidget window;
    WindowFrame frame(window, defaults);
    place(window, {1, 2, 300, 200});
    EXPECT_EQ(defaults.commits(), 0) << "nothing is stored while hidden";
    window.show();
    place(window, {50, 60, 320, 240});
    window.close();
    EXPECT_EQ(defaults.string(kKey), "50 60 320 240");
    const int before = defaults.commits();
    window.show();
    window.close();
    EXPECT_EQ(defaults.commits(), before) << "nothing changed";
}

TEST_F(WindowFrameTest, StoresTheNormalGeometry) {
    QWidget window;
    WindowFrame frame(window, defaults);
    window.show();
    place(window, {50, 60, 320, 240});
    window.hide();
    for (const auto state : {Qt::WindowMaximized, Qt::WindowFullScreen}) {
        window.setWindowState(state);
        window.show();
        window.hide();
        EXPECT_EQ(defaults.string(kKey), "50 60 320 240");
        const QRect filling = window.geometry();
        fitOnScreen(window);
        EXPECT_EQ(window.geometry(), filling);
    }
}

TEST_F(WindowFrameTest, FittingKeepsMinimumSizeAndTopVisible) {
    QWidget window;
    window.setMinimumSize(360, visible.height() + 200);
    window.setGeometry(-100, 300, 360, visible.height() + 200);
    fitOnScreen(window);
    EXPECT_EQ(window.geometry(), QRect(0, 0, 360, visible.height() + 200));
}

} // namespace
} // namespace vexmoor
