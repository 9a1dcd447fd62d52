#pragma once

#include "disposal/Journal.h"

namespace vexmoor {

/// The journal of one batch as its job uses it: begun with the first intent, so that a batch that
/// does nothing leaves none. One thread.
class BatchJournal {
  public:
    BatchJournal(Journal& journal, JournalKind kind, DisposeMode mode, const JournalStart& start)
        : m_journal(journal), m_kind(kind), m_mode(mode), m_start(start) {}

    /// Gathers an intent; it counts when sync() puts it on the disk.
    Result<void> intend(const JournalEntry& entry);

    /// Without success nothing may be done to the items whose intents were gathered.
    Result<void> sync();

    /// Both for one more item, or for one that goes another way than was intended.
    Result<void> intendNow(const JournalEntry& entry);

    /// Work on an item has begun that may be cut off in its middle.
    void begin(const Uuid& id);

    /// How an item ended whose intent was noted; ignored where none was.
    void conclude(const Uuid& id, const std::optional<Error>& failure);

    /// Writes the last outcomes; nullopt if none was begun.
    std::optional<JournalMark> end();

  private:
    Journal& m_journal;
    JournalKind m_kind;
    DisposeMode m_mode;
    JournalStart m_start;
    std::unique_ptr<JournalWriter> m_writer;
};

} // namespace vexmoor
