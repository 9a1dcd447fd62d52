#pragma once

#include "base/FileDescriptor.h"
#include "base/Path.h"
#include "base/Result.h"

#include <sys/types.h>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>

namespace vexmoor {

/// Which file it is, whatever its names.
struct FileIdentity {
    std::uint64_t device = 0;
    std::uint64_t inode = 0;

    auto operator<=>(const FileIdentity&) const = default;
};

/// What is known of a file without following a final link.
struct FileStatus {
    FileIdentity identity;
    std::uint64_t mountId = 0;
    bool isMountPoint = false;
    mode_t mode = 0;
    uid_t owner = 0;
    std::int64_t size = 0; ///< logical bytes
    std::int64_t allocatedBytes = 0;
    std::int64_t modifiedSeconds = 0;   ///< since 1970
    std::uint32_t modifiedFraction = 0; ///< nanoseconds beyond them
    std::int64_t birthNanoseconds = 0;  ///< since 1970; 0 where the file system does not know it

    [[nodiscard]] bool isFolder() const;
    [[nodiscard]] bool isLink() const;
    [[nodiscard]] bool isRegularFile() const;
};

// All of these act on (directory descriptor, name), never follow a final link, may be called from
// any thread and return the system's error. An empty name means the descriptor itself.

Result<FileStatus> fileStatus(int directory, const char* name);
Result<FileStatus> fileStatus(const Path& path);

/// Which file is there now; FileIdentity() where none can be seen.
FileIdentity identityAt(const Path& path);

/// A descriptor that only names the folder: good for the calls here, needs no right to read it.
Result<FileDescriptor> openFolder(int directory, const char* name);
Result<FileDescriptor> openFolder(const Path& path);

/// Like openFolder, but refuses a symbolic link.
Result<FileDescriptor> openFolderItself(int directory, const char* name);

/// Moves within a file system and never onto something: EEXIST where the name is taken. Where the
/// file system cannot do that in one step, a folder is renamed, which succeeds only on nothing or
/// an empty folder, and anything else gets its new name by a hard link before it loses the old one;
/// where there are no hard links either, that fails. `scratch`, where given, opens a folder of the
/// same file system that only we use, or answers -1: with it a file that takes the old name in the
/// meantime is moved instead, without it that file may be removed. It may be the folder that the
/// item goes to.
Result<void> moveWithoutReplacing(int fromDirectory, const char* fromName, int toDirectory,
                                  const char* toName, const std::function<int()>& scratch = {});

/// The path by which the kernel knows an open folder now.
Result<Path> currentPath(int directory);

/// Makes the folder and those above it that are missing, with the given rights less the umask, but
/// always all rights for us.
Result<void> makeFolders(const Path& path, mode_t mode);

/// Makes one folder with exactly the given rights, whatever the umask.
Result<void> makeFolder(int directory, const char* name, mode_t mode);

/// The text of a regular file: EINVAL where it is anything else, EFBIG where it is longer than
/// that. Nothing is waited for. `status` (optional) is how the file was before it was read.
Result<std::string> readRegularFile(int directory, const char* name, std::size_t mostBytes,
                                    FileStatus* status = nullptr);

} // namespace vexmoor
