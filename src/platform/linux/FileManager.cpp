#include "platform/FileManager.h"

#include <fcntl.h>
#include <linux/stat.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>

#include <climits>
#include <cstdio>
#include <string>

#ifndef STATX_MNT_ID
#define STATX_MNT_ID 0x00001000U
#endif
#ifndef STATX_ATTR_MOUNT_ROOT
#define STATX_ATTR_MOUNT_ROOT 0x00002000
#endif

namespace vexmoor {

namespace {

constexpr std::int64_t kBlockBytes = 512; // what stat counts in, whatever the file system's blocks

Result<FileDescriptor> openAs(int directory, const char* name, int flags) {
    FileDescriptor folder(::openat(directory, name, O_PATH | O_DIRECTORY | O_CLOEXEC | flags));
    if (!folder)
        return Error::fromErrno(errno, "open");
    return folder;
}

Result<void> moveOver(int fromDirectory, const char* fromName, int toDirectory,
                      const char* toName) {
    if (::renameat(fromDirectory, fromName, toDirectory, toName) != 0)
        return Error::fromErrno(errno, "move");
    return {};
}

/// For file systems without RENAME_NOREPLACE: rename(2) replaces an empty folder by a folder, and a
/// file by anything else, in one step; the placeholder is made exclusively, so nobody's data can be
/// under the name.
Result<void> moveOverPlaceholder(int fromDirectory, const char* fromName, int toDirectory,
                                 const char* toName) {
    const auto status = fileStatus(fromDirectory, fromName);
    if (!status)
        return status.error();
    const bool isFolder = status->isFolder();
    if (isFolder) {
        if (::mkdirat(toDirectory, toName, 0700) != 0)
            return Error::fromErrno(errno, "move");
    } else {
        const FileDescriptor placeholder(
            ::openat(toDirectory, toName, O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600));
        if (!placeholder)
            return Error::fromErrno(errno, "move");
    }
    auto moved = moveOver(fromDirectory, fromName, toDirectory, toName);
    if (!moved)
        ::unlinkat(toDirectory, toName, isFolder ? AT_REMOVEDIR : 0);
    return moved;
}

} // namespace

bool FileStatus::isFolder() const {
    return S_ISDIR(mode);
}
bool FileStatus::isLink() const {
    return S_ISLNK(mode);
}

Result<FileStatus> fileStatus(int directory, const char* name) {
    struct statx raw {};
    const int flags = AT_SYMLINK_NOFOLLOW | AT_NO_AUTOMOUNT | (*name == '\0' ? AT_EMPTY_PATH : 0);
    if (::statx(directory, name, flags, STATX_BASIC_STATS | STATX_MNT_ID, &raw) != 0)
        return Error::fromErrno(errno, "look at");
    FileStatus status;
    status.identity = {makedev(raw.stx_dev_major, raw.stx_dev_minor), raw.stx_ino};
    status.mountId = raw.stx_mnt_id;
    status.isMountPoint = (raw.stx_attributes & STATX_ATTR_MOUNT_ROOT) != 0;
    status.mode = raw.stx_mode;
    status.owner = raw.stx_uid;
    status.allocatedBytes = static_cast<std::int64_t>(raw.stx_blocks) * kBlockBytes;
    status.modifiedSeconds = raw.stx_mtime.tv_sec;
    return status;
}

Result<FileStatus> fileStatus(const Path& path) {
    return fileStatus(AT_FDCWD, path.c_str());
}

FileIdentity identityAt(const Path& path) {
    const auto status = fileStatus(path);
    return status ? status->identity : FileIdentity();
}

Result<FileDescriptor> openFolder(int directory, const char* name) {
    return openAs(directory, name, 0);
}

Result<FileDescriptor> openFolder(const Path& path) {
    return openAs(AT_FDCWD, path.c_str(), 0);
}

Result<FileDescriptor> openFolderItself(int directory, const char* name) {
    return openAs(directory, name, O_NOFOLLOW);
}

Result<void> moveWithoutReplacing(int fromDirectory, const char* fromName, int toDirectory,
                                  const char* toName) {
    if (::renameat2(fromDirectory, fromName, toDirectory, toName, RENAME_NOREPLACE) == 0)
        return {};
    if (errno == EINVAL || errno == ENOSYS || errno == ENOTSUP)
        return moveOverPlaceholder(fromDirectory, fromName, toDirectory, toName);
    return Error::fromErrno(errno, "move");
}

Result<Path> currentPath(int directory) {
    char link[64];
    std::snprintf(link, sizeof link, "/proc/self/fd/%d", directory);
    char target[PATH_MAX];
    const ssize_t length = ::readlink(link, target, sizeof target);
    if (length < 0)
        return Error::fromErrno(errno, "find the path of");
    return Path(std::string(target, static_cast<std::size_t>(length)));
}

Result<void> makeFolders(const Path& path, mode_t mode) {
    if (::mkdir(path.c_str(), mode) == 0 || errno == EEXIST)
        return {};
    if (errno != ENOENT || !path.has_relative_path())
        return Error::fromErrno(errno, "make the folder", path);
    if (auto made = makeFolders(path.parent_path(), mode); !made)
        return made;
    if (::mkdir(path.c_str(), mode) == 0 || errno == EEXIST)
        return {};
    return Error::fromErrno(errno, "make the folder", path);
}

} // namespace vexmoor
