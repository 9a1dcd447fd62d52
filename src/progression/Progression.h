#pragma once

#include "base/Calendar.h"
#include "base/Path.h"
#include "base/Published.h"
#include "base/UserDefaults.h"
#include "disposal/DisposeMode.h"
#include "progression/Achievement.h"
#include "progression/NotificationPort.h"
#include "progression/Progress.h"

#include <span>
#include <vector>

namespace vexmoor {

class Ledger;

/// Turns offerings into totals, streaks, achievements and skins. Each change is one assignment to
/// the defaults, so that a surrounding transaction makes it part of a batch. Totals saturate
/// instead of overflowing. Main thread only.
class Progression {
  public:
    /// One disposed item.
    struct Offering {
        StoredPath url; ///< its path before disposal
        std::int64_t bytes = 0;
        bool isFolder = false;
    };
    using SkinHandler = std::function<void(const Skin&)>;

    /// Loads the record. If there is no readable record, takes over the ledger's totals, so
    /// construct this before the ledger records a batch that is also recorded here. Calls
    /// `onSkinChosen` immediately and after each selection of a skin.
    Progression(UserDefaults& defaults, const Ledger* ledger, Clock clock,
                NotificationPort& notifications, SkinHandler onSkinChosen);

    [[nodiscard]] const Progress& progress() const { return m_progress.get(); }
    Subscription subscribe(Published<Progress>::Subscriber subscriber) {
        return m_progress.subscribe(std::move(subscriber));
    }

    /// Counts a disposed batch and returns the newly unlocked achievements in catalogue order. The
    /// streak counts the day of `moment` (default: today); a day before the streak's last day does
    /// not change it.
    std::vector<Achievement> record(std::span<const Offering> offerings, DisposeMode mode,
                                    std::optional<Date> moment = std::nullopt);

    /// Requests permission for notifications and announces the achievements if it is granted.
    void notify(const std::vector<Achievement>& achievements);

    /// Returns the skins that the user may select, in catalogue order.
    [[nodiscard]] std::vector<Skin> unlockedSkins() const;

    /// Selects a skin; ignores a locked one.
    void select(const Skin& skin);

    /// Unlocks everything without notifications (for debugging).
    void unlockAll();

    /// Resets the record without reading the ledger (for debugging).
    void reset();

  private:
    void assign(Progress progress);
    void advanceStreak(Progress& progress, std::optional<Date> moment) const;

    UserDefaults& m_defaults;
    Clock m_clock;
    NotificationPort& m_notifications;
    SkinHandler m_onSkinChosen;
    Calendar m_calendar;
    Published<Progress> m_progress;
};

} // namespace vexmoor
