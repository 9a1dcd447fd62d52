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

/// What was consumed: lifetime totals, the newest records with their later fate, a tally a day.
/// Counts only grow; putting back and deleting annotate records. Every change is stored at once.
/// Main thread only.
class Ledger {
  public:
    static constexpr std::size_t kMaxRecent = 40;
    static constexpr int kKeepDays = 60;

    struct DayOfWeek {
        Date day;
        DayTally tally;
        bool operator==(const DayOfWeek&) const = default;
    };

    /// Loads what is stored; what cannot be read counts as absent.
    Ledger(UserDefaults& defaults, Clock clock);

    /// Adds a batch, its items in the order of disposal.
    void record(const std::vector<Sacrifice>& items);

    /// Stamps the fate of recent records; ids that are not among them are ignored.
    void mark(const std::set<Uuid>& restored, const std::set<Uuid>& lost,
              const std::set<Uuid>& deleted);

    /// The seven days up to the one that holds `end`, oldest first.
    [[nodiscard]] std::vector<DayOfWeek> week(Date end) const;

    Published<std::int64_t> count;
    Published<std::int64_t> bytes;
    Published<std::vector<Sacrifice>> recent; ///< newest first, at most kMaxRecent
    Published<std::map<Date, DayTally>> days; ///< by the start of the local day

  private:
    void saveRecent();
    void tally(std::map<Date, DayTally>& table, const std::vector<Sacrifice>& items) const;

    UserDefaults& m_defaults;
    Clock m_clock;
    Calendar m_calendar;
};

} // namespace vexmoor
