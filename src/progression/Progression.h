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

/// Turns what is offered into totals, streaks, achievements and skins. Every change is one
/// assignment to the defaults, so that a transaction around a call makes it part of a batch. Totals
/// stay at the greatest number. Main thread only.
class Progression {
  public:
    /// One disposed item.
    struct Offering {
        StoredPath url; ///< where it was
        std::int64_t bytes = 0;
        bool isFolder = false;
    };
    using SkinHandler = std::function<void(const Skin&)>;

    /// Loads the record. Where there is none that can be read, the totals of the ledger, if given,
    /// are taken over: so make this before the ledger records a batch that this records too.
    /// `onSkinChosen` is called at once and at every choice of a skin.
    Progression(UserDefaults& defaults, const Ledger* ledger, Clock clock,
                NotificationPort& notifications, SkinHandler onSkinChosen);

    [[nodiscard]] const Progress& progress() const { return m_progress.get(); }
    Subscription subscribe(Published<Progress>::Subscriber subscriber) {
        return m_progress.subscribe(std::move(subscriber));
    }

    /// Counts a disposed batch; answers the achievements that it earned, in catalogue order.
    /// The streak counts the day of the moment, today without one; an earlier day than the streak's
    /// last one changes nothing there.
    std::vector<Achievement> record(std::span<const Offering> offerings, DisposeMode mode,
                                    std::optional<Date> moment = std::nullopt);

    /// Announces achievements where notifications are allowed; asks for that first.
    void notify(const std::vector<Achievement>& achievements);

    /// The skins that may be chosen, in their order.
    [[nodiscard]] std::vector<Skin> unlockedSkins() const;

    /// Chooses a skin; one that is not unlocked is ignored.
    void select(const Skin& skin);

    /// Earns everything without announcing it (for debugging).
    void unlockAll();

    /// Starts afresh, whatever the ledger holds (for debugging).
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
