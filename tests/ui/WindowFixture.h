#pragma once

#include "support/DesktopPalette.h"
#include "support/ManualTimer.h"
#include "support/WindowStores.h"

#include <QApplication>
#include <QImage>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWidget>

#include <gtest/gtest.h>

namespace vexmoor::test {

/// The environment of a window: an application on Qt's offscreen platform and separate stores.
struct WindowFixture : testing::Test, WindowStores {
    /// `scale` is the number of physical pixels per point.
    explicit WindowFixture(const char* scale = "1") : scaled(scale) {}

    struct Scaled {
        explicit Scaled(const char* scale) { qputenv("QT_SCALE_FACTOR", scale); }
        ~Scaled() { qunsetenv("QT_SCALE_FACTOR"); }
    };
    Scaled scaled; ///< must precede the application
    int argumentCount = 1;
    char programName[7] = "window";
    char* arguments[2] = {programName, nullptr};
    QApplication application{argumentCount, arguments};
    std::vector<ManualTimer*> timers; ///< in the order of creation

    MakeFrameTimer makeTimer() {
        return [this] {
            auto made = std::make_unique<ManualTimer>();
            timers.push_back(made.get());
            return made;
        };
    }
};

inline void press(QWidget& widget, Qt::Key key) {
    for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, key, Qt::NoModifier);
        QCoreApplication::sendEvent(&widget, &event);
    }
}

/// Clicks at a position in the widget.
inline void click(QWidget& widget, QPoint at) {
    for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
        QMouseEvent event(type, at, widget.mapToGlobal(at), Qt::LeftButton, Qt::LeftButton,
                          Qt::NoModifier);
        QCoreApplication::sendEvent(&widget, &event);
    }
}

inline bool holds(const QImage& image, const QColor& colour) {
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (image.pixelColor(x, y) == colour)
                return true;
    return false;
}

} // namespace vexmoor::test
