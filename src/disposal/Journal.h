#pragma once

#include "disposal/JournalEntry.h"
#include "disposal/JournalFile.h"

#include <memory>
#include <optional>
#include <vector>

namespace vexmoor {

class Journal;

/// What the stores know of the journal when a batch begins.
struct JournalStart {
    std::int64_t lastRecorded = 0; ///< number of the newest batch in the stores
    JournalPosition recorded{};    ///< behind that batch
    bool isDurable = false;        ///< and the stores are on the disk
};

/// A batch in the journal.
struct JournalMark {
    std::int64_t number = 0;
    JournalPosition end{};
};

/// Writes the journal of one batch (docs/journal.md). Nothing is moved or deleted whose intent is
/// not on the disk. One thread, and one at a time.
class JournalWriter {
  public:
    JournalWriter(Journal& journal, std::int64_t number, std::string header);

    /// Gathers what will be done to an item. A second intent for an item (its place was taken)
    /// replaces the first.
    void intend(const JournalEntry& entry) { m_intents += intentLine(entry); }

    /// Puts the gathered intents on the disk; without success they are dropped.
    Result<void> sync();

    /// Notes what became of an item; written with the next intents or the flush.
    void note(const std::string& line) { m_outcomes += line; }

    /// Writes what was noted, for the process that comes after a kill.
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

/// The journal of all batches, for the start after a crash: one file, to which batches are added
/// until it is full and all of them are in stores that are on the disk; then it begins again. The
/// holder of the writer's lock uses it; one thread at a time.
class Journal {
  public:
    explicit Journal(Path folder) : m_folder(std::move(folder)) {}

    /// Begins a batch, under the next number.
    Result<std::unique_ptr<JournalWriter>> begin(JournalKind kind, DisposeMode mode,
                                                 const JournalStart& start);

    /// Whether a batch may stand in the journal that is not in the stores. Cheap.
    [[nodiscard]] bool holdsMoreThan(JournalPosition recorded) const;

    struct Unrecorded {
        std::vector<JournalBatch> batches; ///< oldest first
        JournalPosition end{};
        bool isLost = false;    ///< there is nothing, though there was something
        bool isDamaged = false; ///< something was there that can't be read
    };
    /// The batches that are not in the stores.
    [[nodiscard]] Result<Unrecorded> unrecorded(JournalPosition recorded) const;

    /// Moves the journal's file out of the way and returns where it is.
    Result<Path> setAside();

    /// A position from which on the journal should be written anew.
    [[nodiscard]] static bool isFull(JournalPosition position) {
        return position.offset > JournalFile::kReserve / 2;
    }

    [[nodiscard]] const Path& folder() const { return m_folder; }

  private:
    friend class JournalWriter;

    [[nodiscard]] Path file() const { return m_folder / "current"; }
    Result<void> openAt(const JournalStart& start);

    Path m_folder;
    std::optional<JournalFile> m_file; ///< once a batch was begun
    JournalPosition m_end{};
    std::int64_t m_synced = 0; ///< what stands before that is on the disk
    std::int64_t m_last = 0;   ///< the newest number given out
};

} // namespace vexmoor
