#pragma once

#include "base/FileDescriptor.h"
#include "base/Result.h"
#include "disposal/Sacrifice.h"

#include <memory>
#include <vector>

namespace vexmoor {

/// What a batch does to its items.
enum class JournalKind { feed, putBack, erase };

/// One item of a journal: what is about to be done to it and, once known, how that ended.
struct JournalEntry {
    enum class Outcome { unknown, done, failed };

    Sacrifice sacrifice; ///< `trashed` is the place in the Bin that the item takes or leaves
    bool isFolder = false;
    std::uint64_t inode = 0;         ///< of the item itself, wherever it lies
    std::optional<Path> destination; ///< where it is put back to
    Outcome outcome = Outcome::unknown;
};

/// A journal as it is read.
struct JournalBatch {
    std::int64_t number = 0;
    JournalKind kind = JournalKind::feed;
    DisposeMode mode = DisposeMode::bin;
    std::vector<JournalEntry> entries; ///< in the order of their first intents
};

/// Writes the journal of one batch (docs/journal.md). Nothing is moved or deleted whose intent
/// could not be written. One thread at a time.
class JournalWriter {
  public:
    JournalWriter(Path file, FileDescriptor descriptor, std::int64_t number, std::string header);

    /// Writes what will be done to an item, and the outcomes before it, in one call of the system.
    /// A second intent for an item (its place was taken) replaces the first.
    Result<void> intend(const JournalEntry& entry);

    /// Notes how an item ended; written with the next intent or the flush.
    void conclude(const Uuid& id, bool done);

    Result<void> flush();

    [[nodiscard]] std::int64_t number() const { return m_number; }
    [[nodiscard]] const Path& file() const { return m_file; }

  private:
    Path m_file;
    FileDescriptor m_descriptor;
    std::int64_t m_number;
    std::string m_buffer;
};

/// The folder of journals. A journal is open until its batch is committed to the stores; the newest
/// kKept closed ones of batches that went to the Bin stay, so that such a batch can be put back
/// whole. The holder of the writer's lock uses it; one thread at a time.
class Journal {
  public:
    static constexpr std::size_t kKept = 20;

    explicit Journal(Path folder) : m_folder(std::move(folder)) {}

    /// Begins the journal of a batch, under the next number after `lastRecorded` and all that
    /// exist.
    Result<std::unique_ptr<JournalWriter>> begin(JournalKind kind, DisposeMode mode,
                                                 std::int64_t lastRecorded);

    /// Ends a batch that is committed: the journal is closed, or removed where nothing could be put
    /// back from it.
    Result<void> close(std::int64_t number, JournalKind kind, DisposeMode mode);

    /// Numbers of the journals whose batches were not ended, oldest first.
    [[nodiscard]] std::vector<std::int64_t> open() const;

    /// Numbers of the closed journals, newest first.
    [[nodiscard]] std::vector<std::int64_t> closed() const;

    /// Moves an open journal that can't be understood out of the way, and answers to where.
    Result<Path> setAside(std::int64_t number);

    /// Reads a journal; a last line that a crash cut short is left out. Fails with bad_message or
    /// is_a_directory where it can't be understood: it has another format, or an entry that lacks
    /// what its kind needs.
    [[nodiscard]] Result<JournalBatch> read(std::int64_t number) const;

  private:
    struct Numbers {
        std::vector<std::int64_t> open;   ///< oldest first
        std::vector<std::int64_t> closed; ///< newest first
        std::int64_t greatest = 0;        ///< of all, those set aside too
    };

    [[nodiscard]] Numbers list() const;
    [[nodiscard]] Path fileOf(std::int64_t number, std::string_view ending) const;

    Path m_folder;
    std::int64_t m_last = 0; ///< the newest number given out, in case its file is gone already
};

} // namespace vexmoor
