#pragma once

#include "base/FileDescriptor.h"
#include "base/Path.h"
#include "base/Result.h"

#include <cstdint>
#include <string>
#include <vector>

namespace vexmoor {

/// A place in the journal's file. Generations count up: each begins the file again at its start.
struct JournalPosition {
    std::int64_t generation = 0;
    std::int64_t offset = 0;

    auto operator<=>(const JournalPosition&) const = default;
};

/// The file of the journal (docs/journal.md): checksummed blocks of text one after the other, in
/// room that was written before, so that syncing a block writes nothing but its data. One thread.
class JournalFile {
  public:
    /// Room that the file keeps at all times, on a full disk too.
    static constexpr std::int64_t kReserve = 256 * 1024;

    /// Opens the file; no_such_file_or_directory where there is none.
    static Result<JournalFile> open(const Path& path);
    /// Makes the file with its reserve, on the disk when this returns.
    static Result<JournalFile> make(const Path& path);

    struct Block {
        std::string text;
        std::int64_t end = 0;
    };
    struct Contents {
        std::vector<Block> blocks;
        std::int64_t end = 0;   ///< behind the last block that can be read
        bool isDamaged = false; ///< blocks that were on the disk can't be read
    };

    /// The generation that stands at the file's start; 0 where nothing that makes sense does.
    [[nodiscard]] std::int64_t generation() const;

    /// Whether the file ends at the position in good order: then nothing stands behind.
    [[nodiscard]] bool endsAt(JournalPosition position) const;

    /// The blocks from the position on.
    [[nodiscard]] Result<Contents> read(JournalPosition from) const;

    /// Writes a block and returns where it ends. `synced`: what stands before that is on the disk.
    Result<std::int64_t> write(JournalPosition at, std::int64_t synced, const std::string& text);

    Result<void> sync();

    /// Releases what a large batch took beyond the reserve.
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
