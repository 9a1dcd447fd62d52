#pragma once

#include "base/Calendar.h"
#include "base/Published.h"
#include "base/UserDefaults.h"
#include "disposal/DayTally.h"
#include "disposal/Sacrifice.h"

#include <map>
#include <set>
#include <vector>

namespace vexmoor {

/// The history of consumed items: lifetime totals, the most recent records with their later fate,
/// and daily tallies. Counts only grow; putting back and deleting annotate records. Each change is
/// stored immediately. Main thread only.
class Ledger {
  public:
    static constexpr std::size_t kMaxRecent = 40;
    static constexpr int kKeepDays = 60;

    struct DayOfWeek {
        Date day;
        DayTally tally;
        bool operator==(const DayOfWeek&) const = default;
    };

    /// Loads the stored values; unreadable ones count as missing.
    Ledger(UserDefaults& defaults, Clock clock);

    /// Adds a batch; the items have the order of disposal.
    void record(const std::vector<Sacrifice>& items);

    /// Marks recent records as restored, lost or deleted; ignores unknown ids.
    void mark(const std::set<Uuid>& restored, const std::set<Uuid>& lost,
              const std::set<Uuid>& deleted);

    /// Returns the seven days up to the one that contains `end`, oldest first.
    [[nodiscard]] std::vector<DayOfWeek> week(Date end) const;

    Published<std::int64_t> count;
    Published<std::int64_t> bytes;
    Published<std::vector<Sacrifice>> recent; ///< newest first, at most kMaxRecent
    Published<std::map<Date, DayTally>> days; ///< by start of the local day

  private:
    void saveRecent();
    void tally(std::map<Date, DayTally>& table, const std::vector<Sacrifice>& items) const;

    UserDefaults& m_defaults;
    Clock m_clock;
    Calendar m_calendar;
};

} // namespace vexmoor
