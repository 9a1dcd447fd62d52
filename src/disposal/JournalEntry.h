#pragma once

#include "disposal/JournalFile.h"
#include "disposal/Sacrifice.h"

#include <optional>
#include <string>
#include <string_view>
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
    std::optional<Path> volume;      ///< of a dissolve: where the item's volume is mounted
    std::string fileSystem{};        ///< of a dissolve: volumeName() of it, empty if unknown
    Outcome outcome = Outcome::unknown;
    bool isBegun = false; ///< dissolving the folder has begun
    std::string failure;  ///< why it failed, as the user reads it
};

/// A batch as it is read from a journal.
struct JournalBatch {
    std::int64_t number = 0;
    JournalKind kind = JournalKind::feed;
    DisposeMode mode = DisposeMode::bin;
    std::vector<JournalEntry> entries; ///< in the order of their first intents
    JournalPosition end{};             ///< behind its last block
};

// The lines of a journal (docs/journal.md), each with its line feed.

std::string headerLine(std::int64_t number, JournalKind kind, DisposeMode mode);
std::string intentLine(const JournalEntry& entry);
std::string begunLine(const Uuid& id);
std::string doneLine(const Uuid& id);
std::string failedLine(const Uuid& id, const std::string& failure);

/// Adds the batches and entries of some lines; a header with the number of the last batch goes on
/// with it. Fails with bad_message where a line makes no sense, with not_supported where a header
/// is of a newer version. A last line without a line feed is left out.
Result<void> readLines(std::string_view lines, std::vector<JournalBatch>& batches);

} // namespace vexmoor
