#pragma once

#include "base/UserDefaults.h"
#include "disposal/Journal.h"

#include <functional>

namespace vexmoor {

/// Stores what batches changed, each with its mark in the journal. Main thread.
class Settlement {
  public:
    /// Number of the newest batch that is in the stores, and where it ends in the journal.
    static constexpr const char* kRecordedKey = "journal.recorded";
    static constexpr const char* kPositionKey = "journal.position";

    explicit Settlement(UserDefaults& defaults) : m_defaults(defaults) {}

    /// One transaction for all that a batch changes, its mark included: from then on the journal
    /// has nothing to add, nor for batches whose changes could not be stored before. Where it has
    /// the batch, the transaction needs no sync.
    std::optional<Error> commit(const std::optional<JournalMark>& mark,
                                const std::function<void()>& changes);

    /// Tries again to store what could not be stored.
    void storeLeftOver();

    /// For the batch that begins next. The stores are brought to the disk where the journal is full
    /// and can begin again.
    [[nodiscard]] JournalStart start();

    static JournalPosition position(const UserDefaults& defaults);
    static void assign(UserDefaults& defaults, const JournalMark& mark);

  private:
    UserDefaults& m_defaults;
    bool m_hasLeftOver = false;
};

} // namespace vexmoor
