#pragma once

#include "disposal/Journal.h"

namespace vexmoor {

/// A job's journal. Begins the batch with its first intent, so that a batch that does nothing is
/// not recorded. Not thread-safe.
class BatchJournal {
  public:
    BatchJournal(Journal& journal, JournalKind kind, DisposeMode mode, const JournalStart& start)
        : m_journal(journal), m_kind(kind), m_mode(mode), m_start(start) {}

    /// Collects an intent, which sync() writes to the disk.
    Result<void> intend(const JournalEntry& entry);

    /// Writes and syncs the intents. If it fails, their items must not be touched.
    Result<void> sync();

    /// Like intend() and sync(), for one more item, or for one whose operation differs from its
    /// intent.
    Result<void> intendNow(const JournalEntry& entry);

    /// Records that an operation on an item has begun that a crash can interrupt halfway.
    void begin(const Uuid& id);

    /// Records the outcome of an item; ignored if there is no intent for it.
    void conclude(const Uuid& id, const std::optional<Error>& failure);

    /// Writes the last outcomes; returns nullopt if no batch was begun.
    std::optional<JournalMark> end();

  private:
    Journal& m_journal;
    JournalKind m_kind;
    DisposeMode m_mode;
    JournalStart m_start;
    std::unique_ptr<JournalWriter> m_writer;
};

} // namespace vexmoor
