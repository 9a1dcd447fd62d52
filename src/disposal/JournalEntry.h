#pragma once

#include "disposal/JournalFile.h"
#include "disposal/Sacrifice.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vexmoor {

/// The operation of a batch.
enum class JournalKind { feed, putBack, erase };

/// One item in a journal: the intended operation and, once known, its outcome.
struct JournalEntry {
    enum class Outcome { unknown, done, failed };

    Sacrifice sacrifice; ///< `trashed` is the path in the Bin that the item gets or leaves
    bool isFolder = false;
    std::uint64_t inode = 0;         ///< of the item itself, at any path
    std::optional<Path> destination; ///< the path to which it is put back
    std::optional<Path> volume;      ///< for dissolving: the mount point of the item's volume
    std::string fileSystem{}; ///< for dissolving: volumeName() of that volume; empty if unknown
    Outcome outcome = Outcome::unknown;
    bool isBegun = false; ///< dissolving of the folder has begun
    std::string failure;  ///< the reason of the failure, in the user's language
};

/// A batch read from a journal.
struct JournalBatch {
    std::int64_t number = 0;
    JournalKind kind = JournalKind::feed;
    DisposeMode mode = DisposeMode::bin;
    std::vector<JournalEntry> entries; ///< ordered by their first intents
    JournalPosition end{};             ///< end of its last block
};

// Format the lines of a journal (docs/journal.md), each with a line feed.

std::string headerLine(std::int64_t number, JournalKind kind, DisposeMode mode);
std::string intentLine(const JournalEntry& entry);
std::string begunLine(const Uuid& id);
std::string doneLine(const Uuid& id);
std::string failedLine(const Uuid& id, const std::string& failure);

/// Parses lines and appends their batches and entries. A header with the number of the last batch
/// continues that batch. Fails with bad_message if a line cannot be parsed, and with not_supported
/// if a header has a newer version. Ignores a last line without a line feed.
Result<void> readLines(std::string_view lines, std::vector<JournalBatch>& batches);

} // namespace vexmoor
