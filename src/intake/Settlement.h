#pragma once

#include "base/UserDefaults.h"
#include "disposal/Journal.h"

#include <functional>

namespace vexmoor {

/// Stores the changes of batches, each with its position in the journal. Main thread.
class Settlement {
  public:
    /// Key of the number and the end position of the newest batch in the stores.
    static constexpr const char* kRecordedKey = "journal.recorded";
    static constexpr const char* kPositionKey = "journal.position";

    explicit Settlement(UserDefaults& defaults) : m_defaults(defaults) {}

    /// Stores all changes of a batch, including its mark, in one transaction, together with earlier
    /// batches that could not be stored. Does not sync if the journal has the batch.
    std::optional<Error> commit(const std::optional<JournalMark>& mark,
                                const std::function<void()>& changes);

    /// Retries storing what could not be stored.
    void storeLeftOver();

    /// Returns the state for the next batch. If the journal is full, syncs the stores first so that
    /// it can start again.
    [[nodiscard]] JournalStart start();

    static JournalPosition position(const UserDefaults& defaults);
    static void assign(UserDefaults& defaults, const JournalMark& mark);

  private:
    UserDefaults& m_defaults;
    bool m_hasLeftOver = false;
};

} // namespace vexmoor
