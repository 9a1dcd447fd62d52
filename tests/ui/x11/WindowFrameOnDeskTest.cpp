#include "support/InMemoryDefaults.h"
#include "support/MainLoop.h"
#include "support/XSession.h"

#include "ui/WindowFrame.h"

#include <QApplication>
#include <QScreen>
#include <QWindow>

#include <gtest/gtest.h>

namespace vexmoor {
namespace {

using namespace test;

constexpr auto kKey = "window.Vexmoor";

/// Tests under a window manager that decorates windows.
struct WindowFrameOnDeskTest : testing::Test {
    void SetUp() override {
        if (const auto program = XSession::missing())
            GTEST_SKIP() << *program << " is not installed";
        session = std::make_unique<XSession>();
        application = std::make_unique<QApplication>(count, arguments);
    }

    /// Returns the margins that the window manager added.
    static QMargins marginsOf(const QWidget& window) {
        EXPECT_TRUE(
            eventuallyInLoop([&] { return !window.windowHandle()->frameMargins().isNull(); }));
        return window.windowHandle()->frameMargins();
    }
    static testing::AssertionResult comesToRestAt(const QWidget& window, const QRect& expected) {
        QRect frame;
        if (eventuallyInLoop([&] {
                frame = window.geometry().marginsAdded(window.windowHandle()->frameMargins());
                return frame == expected;
            }))
            return testing::AssertionSuccess();
        return testing::AssertionFailure() << "it is at " << frame.x() << ' ' << frame.y() << ' '
                                           << frame.width() << ' ' << frame.height();
    }

    /// Hides the window and waits until the window manager has removed its frame: before that it
    /// may miss the next show.
    static bool hidesCompletely(QWidget& window) {
        window.hide();
        return eventuallyInLoop([&] { return window.windowHandle()->frameMargins().isNull(); });
    }

    int count = 1;
    char name[6] = "frame";
    char* arguments[2] = {name, nullptr};
    std::unique_ptr<XSession> session;
    std::unique_ptr<QApplication> application;
    InMemoryDefaults defaults;
};

TEST_F(WindowFrameOnDeskTest, FrameFitsOnTheScreenOnEachShow) {
    const QRect visible = QGuiApplication::primaryScreen()->availableGeometry();
    defaults.assign(kKey, "2000 300 360 3000");
    QWidget window;
    const WindowFrame frame(window, defaults);
    for (int showing = 0; showing < 3; ++showing) {
        window.show();
        const int wide = 360 + marginsOf(window).left() + marginsOf(window).right();
        EXPECT_TRUE(comesToRestAt(
            window, {visible.right() + 1 - wide, visible.top(), wide, visible.height()}));
        EXPECT_TRUE(hidesCompletely(window));
    }
}

TEST_F(WindowFrameOnDeskTest, RestoresTheSamePositionRepeatedly) {
    const int bottom = QGuiApplication::primaryScreen()->availableGeometry().bottom() + 1;
    for (const bool atBottom : {false, true}) {
        defaults.assign(kKey, atBottom ? "200 700 360 520" : "200 100 360 520");
        for (int start = 0; start < 3; ++start) {
            QWidget window;
            const WindowFrame frame(window, defaults);
            for (int showing = 0; showing < 3; ++showing) {
                window.show();
                const QSize size = QSize(360, 520).grownBy(marginsOf(window));
                const int y = atBottom ? bottom - size.height() : 100;
                EXPECT_TRUE(comesToRestAt(window, {QPoint(200, y), size}));
                EXPECT_TRUE(hidesCompletely(window));
                EXPECT_EQ(defaults.string(kKey), "200 " + std::to_string(y) + " 360 520");
            }
        }
    }
}

} // namespace
} // namespace vexmoor
