#pragma once

#include "disposal/Journal.h"

namespace vexmoor {

/// The journal of one batch as its job uses it: begun with the first intent, so that a batch that
/// does nothing leaves none. One thread.
class BatchJournal {
  public:
    BatchJournal(Journal& journal, JournalKind kind, DisposeMode mode, std::int64_t lastRecorded)
        : m_journal(journal), m_kind(kind), m_mode(mode), m_lastRecorded(lastRecorded) {}

    /// Without success nothing may be done to the item.
    Result<void> intend(const JournalEntry& entry);

    /// How an item ended whose intent was noted; ignored where none was.
    void conclude(const Uuid& id, bool done);

    /// Writes the last outcomes and returns the journal's number, nullopt if none was begun.
    std::optional<std::int64_t> end();

  private:
    Journal& m_journal;
    JournalKind m_kind;
    DisposeMode m_mode;
    std::int64_t m_lastRecorded;
    std::unique_ptr<JournalWriter> m_writer;
};

} // namespace vexmoor
