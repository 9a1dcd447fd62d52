#pragma once

#include "base/UserDefaults.h"
#include "disposal/Journal.h"

#include <functional>
#include <vector>

namespace vexmoor {

/// Stores what batches changed, each with its journal's number, and closes the journals. Main
/// thread.
class Settlement {
  public:
    /// Key of the newest journal's number that is in the stores.
    static constexpr const char* kRecordedKey = "journal.recorded";

    Settlement(UserDefaults& defaults, Journal& journal)
        : m_defaults(defaults), m_journal(journal) {}

    /// One transaction for all that a batch changes, its journal's number included: from then on
    /// the journal has nothing to add, nor have those whose changes could not be stored before.
    std::optional<Error> commit(std::optional<std::int64_t> journalNumber, JournalKind kind,
                                DisposeMode mode, const std::function<void()>& changes);

    /// Tries again to store what could not be stored.
    void storeLeftOver();

    [[nodiscard]] std::int64_t lastRecorded() const;

  private:
    /// A journal that stays open as the stores could not be written.
    struct Unsettled {
        std::int64_t journal;
        JournalKind kind;
        DisposeMode mode;
    };

    UserDefaults& m_defaults;
    Journal& m_journal;
    std::vector<Unsettled> m_unsettled;
};

} // namespace vexmoor
