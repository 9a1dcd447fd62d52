#pragma once

#include "disposal/JournalEntry.h"
#include "disposal/JournalFile.h"

#include <memory>
#include <optional>
#include <vector>

namespace vexmoor {

class Journal;

/// The state of the stores when a batch begins.
struct JournalStart {
    std::int64_t lastRecorded = 0; ///< number of the newest batch in the stores
    JournalPosition recorded{};    ///< end of that batch
    bool isDurable = false;        ///< the stores are synced to the disk up to that batch
};

/// The position of a batch in the journal.
struct JournalMark {
    std::int64_t number = 0;
    JournalPosition end{};
};

/// Writes the journal of one batch (docs/journal.md). An item must not be moved or deleted before
/// its intent is synced. Not thread-safe; only one may exist at a time.
class JournalWriter {
  public:
    JournalWriter(Journal& journal, std::int64_t number, std::string header);

    /// Collects the intent of an item. A second intent for the same item (its place was taken)
    /// replaces the first.
    void intend(const JournalEntry& entry) { m_intents += intentLine(entry); }

    /// Writes the collected intents and syncs them. Drops them on failure.
    Result<void> sync();

    /// Collects the outcome of an item; it is written with the next intents or by flush().
    void note(const std::string& line) { m_outcomes += line; }

    /// Writes the collected outcomes, for recovery after a crash.
    Result<void> flush();

    [[nodiscard]] std::int64_t number() const { return m_number; }
    [[nodiscard]] JournalPosition end() const;

  private:
    Result<void> write(const std::string& lines);

    Journal& m_journal;
    std::int64_t m_number;
    std::string m_header;
    std::string m_intents;
    std::string m_outcomes;
};

/// The journal of all batches, for recovery after a crash. Batches are appended to one file; when
/// it is full and all its batches are in synced stores, it starts again at its beginning. Used by
/// the holder of the writer lock; not thread-safe.
class Journal {
  public:
    explicit Journal(Path folder) : m_folder(std::move(folder)) {}

    /// Begins a batch with the next number.
    Result<std::unique_ptr<JournalWriter>> begin(JournalKind kind, DisposeMode mode,
                                                 const JournalStart& start);

    /// True if the journal may have a batch that is not in the stores. Cheap.
    [[nodiscard]] bool holdsMoreThan(JournalPosition recorded) const;

    struct Unrecorded {
        std::vector<JournalBatch> batches; ///< oldest first
        JournalPosition end{};
        bool isLost = false;    ///< the journal is empty or missing, but had batches
        bool isDamaged = false; ///< a part cannot be read
    };
    /// Returns the batches that are not in the stores.
    [[nodiscard]] Result<Unrecorded> unrecorded(JournalPosition recorded) const;

    /// Renames the journal's file and returns its new path.
    Result<Path> setAside();

    /// True if the journal should start again at its beginning.
    [[nodiscard]] static bool isFull(JournalPosition position) {
        return position.offset > JournalFile::kReserve / 2;
    }

    [[nodiscard]] const Path& folder() const { return m_folder; }

  private:
    friend class JournalWriter;

    [[nodiscard]] Path file() const { return m_folder / "current"; }
    Result<void> openAt(const JournalStart& start);

    Path m_folder;
    std::optional<JournalFile> m_file; ///< open once a batch has begun
    JournalPosition m_end{};
    std::int64_t m_synced = 0; ///< everything before this offset is on the disk
    std::int64_t m_last = 0;   ///< the newest number assigned
};

} // namespace vexmoor
