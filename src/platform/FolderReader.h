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

/// One folder entry, valid until the next call of the reader.
struct FolderEntry {
    const char* name = nullptr;
    bool isFolder = false; ///< also false if the file system does not report types
};

/// Reads entries of open folders in batches, without "." and "..". Sorts each batch by inode:
/// hashed folders return entries in random inode order, which makes file systems read the same
/// inode blocks repeatedly. One reader serves any number of folders, one batch at a time. Two
/// readers may share a descriptor; each entry then goes to one of them. Not thread-safe.
class FolderReader {
  public:
    static constexpr std::size_t kUsualBytes = std::size_t{64} * 1024;

    /// Reads a batch at the descriptor's position, of at most `bytes` (more if a single entry needs
    /// it). Uses up to twice that memory and keeps it. Returns the number of bytes read, 0 at the
    /// end.
    Result<std::size_t> read(int folder, std::size_t bytes = kUsualBytes);

    /// Returns the batch's next entry, or null at its end.
    const FolderEntry* next();

    /// Returns the number of unread entries in the batch.
    [[nodiscard]] std::size_t left() const { return m_order.size() - m_next; }

    /// Removes the names in the second half of the unread entries and returns them, each terminated
    /// by NUL. Folders stay in the batch.
    std::string takeSecondHalf();

    /// The lseek position at which reading continues after this batch.
    [[nodiscard]] off_t position() const { return m_position; }

  private:
    void takeOrder(std::size_t size);
    [[nodiscard]] FolderEntry entryAt(std::size_t place) const;

    using Place = std::pair<std::uint64_t, std::size_t>; ///< inode and entry offset

    std::unique_ptr<char[]> m_buffer;
    std::size_t m_capacity = 0;
    std::vector<Place> m_order;
    std::size_t m_next = 0;
    off_t m_position = 0;
    FolderEntry m_entry;
};

} // namespace vexmoor
