#pragma once

#include "base/FileDescriptor.h"
#include "base/Path.h"
#include "base/Result.h"

#include <cstdint>
#include <string>
#include <vector>

namespace vexmoor {

/// A position in the journal's file. The generation increases each time the file starts again at
/// its beginning.
struct JournalPosition {
    std::int64_t generation = 0;
    std::int64_t offset = 0;

    auto operator<=>(const JournalPosition&) const = default;
};

/// The journal's file (docs/journal.md): a sequence of checksummed blocks of text. It is
/// preallocated, so that a sync writes only the data of a block. Not thread-safe.
class JournalFile {
  public:
    /// The size that is always allocated, so that a full disk does not prevent small batches.
    static constexpr std::int64_t kReserve = 256 * 1024;

    /// Opens the file; fails with no_such_file_or_directory if it does not exist.
    static Result<JournalFile> open(const Path& path);
    /// Creates the file with its reserve and syncs it.
    static Result<JournalFile> make(const Path& path);

    struct Block {
        std::string text;
        std::int64_t end = 0;
    };
    struct Contents {
        std::vector<Block> blocks;
        std::int64_t end = 0;   ///< end of the last readable block
        bool isDamaged = false; ///< blocks that were synced cannot be read
    };

    /// Returns the generation at the start of the file; 0 if that is not valid.
    [[nodiscard]] std::int64_t generation() const;

    /// True if the end mark is at the position, so that no block follows.
    [[nodiscard]] bool endsAt(JournalPosition position) const;

    /// Reads the blocks from the position on.
    [[nodiscard]] Result<Contents> read(JournalPosition from) const;

    /// Writes a block and returns its end. `synced` is the offset before which everything is on the
    /// disk.
    Result<std::int64_t> write(JournalPosition at, std::int64_t synced, const std::string& text);

    Result<void> sync();

    /// Truncates the file to the reserve after a large batch.
    void shrink();

  private:
    JournalFile(Path path, FileDescriptor descriptor)
        : m_path(std::move(path)), m_descriptor(std::move(descriptor)) {}
    Result<void> writeAll(const std::string& bytes, std::int64_t offset);
    [[nodiscard]] Result<std::string> bytesFrom(std::int64_t offset) const;

    Path m_path;
    FileDescriptor m_descriptor;
};

} // namespace vexmoor
