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

/// Identifies a file independently of its names.
struct FileIdentity {
    std::uint64_t device = 0;
    std::uint64_t inode = 0;

    auto operator<=>(const FileIdentity&) const = default;
};

/// The status of a file. A final symbolic link is not followed.
struct FileStatus {
    FileIdentity identity;
    std::uint64_t mountId = 0;
    bool isMountPoint = false;
    mode_t mode = 0;
    uid_t owner = 0;
    std::int64_t size = 0; ///< logical bytes
    std::int64_t allocatedBytes = 0;
    std::int64_t modifiedSeconds = 0;   ///< since 1970
    std::uint32_t modifiedFraction = 0; ///< nanosecond part
    std::int64_t birthNanoseconds = 0;  ///< since 1970; 0 if the file system does not record it

    [[nodiscard]] bool isFolder() const;
    [[nodiscard]] bool isLink() const;
    [[nodiscard]] bool isRegularFile() const;
};

// These functions take a directory descriptor and a name, never follow a final link, are
// thread-safe and return the system's error. An empty name stands for the descriptor itself.

Result<FileStatus> fileStatus(int directory, const char* name);
Result<FileStatus> fileStatus(const Path& path);

/// Returns the identity of the file at the path, or FileIdentity() if it cannot be read.
FileIdentity identityAt(const Path& path);

/// Opens a folder with O_PATH: enough for the functions here, without read permission.
Result<FileDescriptor> openFolder(int directory, const char* name);
Result<FileDescriptor> openFolder(const Path& path);

/// Like openFolder, but refuses a symbolic link.
Result<FileDescriptor> openFolderItself(int directory, const char* name);

/// Moves an item within a file system without replacing anything; fails with EEXIST if the name is
/// taken. If the file system cannot do this atomically, folders are renamed (which fails on a
/// non-empty folder), and other items are hard-linked to the new name before the old one is
/// removed; without hard links this fails. `scratch` (optional) opens a private folder on the same
/// file system, or returns -1. With it, a file that takes the old name in the meantime is moved;
/// without it, that file may be removed. The private folder may be the destination.
Result<void> moveWithoutReplacing(int fromDirectory, const char* fromName, int toDirectory,
                                  const char* toName, const std::function<int()>& scratch = {});

/// Returns the kernel's current path of an open folder.
Result<Path> currentPath(int directory);

/// Creates the folder and its missing parents with the given mode minus the umask, but always with
/// all permissions for the user.
Result<void> makeFolders(const Path& path, mode_t mode);

/// Creates one folder with exactly the given mode, ignoring the umask.
Result<void> makeFolder(int directory, const char* name, mode_t mode);

/// Reads a regular file. Fails with EINVAL for any other kind of file, and with EFBIG if it is
/// longer than `mostBytes`. Never blocks. `status` (optional) receives the status before reading.
Result<std::string> readRegularFile(int directory, const char* name, std::size_t mostBytes,
                                    FileStatus* status = nullptr);

} // namespace vexmoor
