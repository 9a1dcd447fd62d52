#pragma once

#include "base/FileDescriptor.h"
#include "base/Path.h"
#include "base/Result.h"

#include <sys/types.h>

#include <cstdint>

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
    std::int64_t allocatedBytes = 0;
    std::int64_t modifiedSeconds = 0; ///< since 1970

    [[nodiscard]] bool isFolder() const;
    [[nodiscard]] bool isLink() const;
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
/// file system cannot do that in one step, the name is first taken by an empty placeholder that
/// only we can have made, which the move then replaces.
Result<void> moveWithoutReplacing(int fromDirectory, const char* fromName, int toDirectory,
                                  const char* toName);

/// The path by which the kernel knows an open folder now.
Result<Path> currentPath(int directory);

/// Makes the folder and those above it that are missing, with the given rights less the umask.
Result<void> makeFolders(const Path& path, mode_t mode);

} // namespace vexmoor
