#pragma once

#include "support/FakeClock.h"
#include "support/InMemoryDefaults.h"

#include "disposal/Ledger.h"
#include "disposal/Settings.h"
#include "progression/Progression.h"

// Header only, since not all tests link progression.

namespace vexmoor::test {

/// The stores of a window in memory, at a time set by the test.
struct WindowStores {
    struct NoNotifications : NotificationPort {
        void requestAuthorization(std::function<void(bool)>) override {}
        void post(const Notification&) override {}
    };

    /// Starts with stored values.
    explicit WindowStores(InMemoryDefaults::Values values = {}) : defaults(std::move(values)) {}

    FakeClock clock{utc("2026-11-22 12:00:00")};
    NoNotifications notifications;
    InMemoryDefaults defaults;
    Ledger ledger{defaults, clock.clock()};
    Settings settings{defaults};
    Progression progression{defaults, &ledger, clock.clock(), notifications, [](const Skin&) {}};

    /// Feeds files of these sizes.
    void feed(const std::vector<std::int64_t>& sizes) {
        std::vector<Sacrifice> items;
        std::vector<Progression::Offering> offerings;
        for (const std::int64_t size : sizes) {
            Sacrifice item;
            item.id = Uuid::generate();
            item.name = "notes.txt";
            item.bytes = size;
            item.date = clock.now;
            items.push_back(item);
            offerings.push_back({.url = {}, .bytes = size});
        }
        ledger.record(items);
        progression.record(offerings, DisposeMode::bin);
    }
};

} // namespace vexmoor::test
