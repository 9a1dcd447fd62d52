#pragma once

#include "base/Result.h"

#include <sys/types.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace vexmoor {

/// One entry of a folder, valid until the reader reads again.
struct FolderEntry {
    const char* name = nullptr;
    bool isFolder = false; ///< false too where the file system does not tell
};

/// Reads the entries of open folders in bulk, "." and ".." left out. A batch comes in the order of
/// the entries' inodes: where folders are hashed, theirs is random, and going by it would have a
/// file system fetch the same blocks of inodes over and over. One reader serves any number of
/// folders, one batch at a time. Two readers may read on from the same descriptor at once: each
/// entry comes to one of them. One thread a reader.
class FolderReader {
  public:
    static constexpr std::size_t kUsualBytes = std::size_t{64} * 1024;

    /// Fetches a batch at the descriptor's position, of at most `bytes` (more where not a single
    /// entry would fit); takes up to twice as much memory, and keeps it. The number of bytes
    /// fetched: 0 at the end.
    Result<std::size_t> read(int folder, std::size_t bytes = kUsualBytes);

    /// The batch's next entry, null behind its last.
    const FolderEntry* next();

    /// Entries of the batch that are still to come.
    [[nodiscard]] std::size_t left() const { return m_order.size() - m_next; }

    /// Takes the names of the second half of what is still to come, each with a NUL behind it;
    /// folders stay in the batch.
    std::string takeSecondHalf();

    /// Where the descriptor must be set (lseek) to read on behind this batch.
    [[nodiscard]] off_t position() const { return m_position; }

  private:
    void takeOrder(std::size_t size);
    [[nodiscard]] FolderEntry entryAt(std::size_t place) const;

    using Place = std::pair<std::uint64_t, std::size_t>; ///< an inode, where its entry stands

    std::unique_ptr<char[]> m_buffer;
    std::size_t m_capacity = 0;
    std::vector<Place> m_order;
    std::size_t m_next = 0;
    off_t m_position = 0;
    FolderEntry m_entry;
};

} // namespace vexmoor
