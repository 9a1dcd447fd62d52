#pragma once

#include "support/FakeClock.h"
#include "support/InMemoryDefaults.h"
#include "support/ManualTimer.h"

#include "disposal/Ledger.h"
#include "disposal/Settings.h"
#include "progression/Progression.h"

#include <QApplication>
#include <QKeyEvent>
#include <QWidget>

#include <gtest/gtest.h>

namespace vexmoor::test {

/// What a window needs to be made: an application on Qt's offscreen platform, stores of its own.
struct WindowFixture : testing::Test {
    /// With that many physical pixels a point.
    explicit WindowFixture(const char* scale = "1") : scaled(scale) {}

    struct Scaled {
        explicit Scaled(const char* scale) { qputenv("QT_SCALE_FACTOR", scale); }
        ~Scaled() { qunsetenv("QT_SCALE_FACTOR"); }
    };
    struct NoNotifications : NotificationPort {
        void requestAuthorization(std::function<void(bool)>) override {}
        void post(const Notification&) override {}
    };

    Scaled scaled; ///< before there is an application
    int argumentCount = 1;
    char programName[7] = "window";
    char* arguments[2] = {programName, nullptr};
    QApplication application{argumentCount, arguments};
    FakeClock clock{utc("2026-11-22 12:00:00")};
    NoNotifications notifications;
    InMemoryDefaults defaults;
    Ledger ledger{defaults, clock.clock()};
    Settings settings{defaults};
    Progression progression{defaults, &ledger, clock.clock(), notifications, [](const Skin&) {}};
    std::vector<ManualTimer*> timers; ///< in the order in which they were made

    MakeFrameTimer makeTimer() {
        return [this] {
            auto made = std::make_unique<ManualTimer>();
            timers.push_back(made.get());
            return made;
        };
    }

    /// Feeds files of these sizes.
    void feed(const std::vector<std::int64_t>& sizes) {
        std::vector<Sacrifice> items;
        std::vector<Progression::Offering> offerings;
        for (const std::int64_t size : sizes) {
            Sacrifice item;
            item.id = Uuid::generate();
            item.bytes = size;
            item.date = clock.now;
            items.push_back(item);
            offerings.push_back({.url = {}, .bytes = size});
        }
        ledger.record(items);
        progression.record(offerings, DisposeMode::bin);
    }
};

inline void press(QWidget& widget, Qt::Key key) {
    for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, key, Qt::NoModifier);
        QCoreApplication::sendEvent(&widget, &event);
    }
}

/// The system's colours as a light or a dark desktop sets them.
inline QPalette desktopPalette(bool dark) {
    const QColor ground = dark ? QColor(0x1e, 0x1d, 0x22) : QColor(0xfb, 0xfb, 0xfc);
    const QColor text = dark ? QColor(0xf2, 0xf2, 0xf4) : QColor(0x1d, 0x1d, 0x1f);
    QPalette palette(dark ? QColor(0x2a, 0x29, 0x2f) : QColor(0xef, 0xef, 0xf0));
    palette.setColor(QPalette::Base, ground);
    for (const auto role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText})
        palette.setColor(role, text);
    return palette;
}

} // namespace vexmoor::test
