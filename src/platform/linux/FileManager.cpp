#include "platform/FileManager.h"

#include <fcntl.h>
#include <linux/stat.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
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

constexpr std::int64_t kBlockBytes =
    512; // stat's block unit, independent of the file system's block size

Result<FileDescriptor> openAs(int directory, const char* name, int flags) {
    FileDescriptor folder(::openat(directory, name, O_PATH | O_DIRECTORY | O_CLOEXEC | flags));
    if (!folder)
        return Error::fromErrno(errno, "open");
    return folder;
}

bool isUnsupported(int error) {
    return error == EINVAL || error == ENOSYS || error == ENOTSUP;
}

/// Moves a folder, which rename(2) puts only on a free name or an empty folder, or any item if no
/// other program uses the destination folder.
Result<void> moveOntoNothing(int fromDirectory, const char* fromName, int toDirectory,
                             const char* toName) {
    if (const auto taken = fileStatus(toDirectory, toName); taken)
        return Error::fromErrno(EEXIST, "move");
    else if (taken.error().code != std::errc::no_such_file_or_directory)
        return taken.error();
    if (::renameat(fromDirectory, fromName, toDirectory, toName) == 0)
        return {};
    const bool isTaken = errno == ENOTEMPTY || errno == ENOTDIR;
    return Error::fromErrno(isTaken ? EEXIST : errno, "move");
}

/// Links the new name, then moves the old name through the scratch folder: whatever has that name
/// by then is renamed onto the new name, which has no effect if it is the same file.
Result<void> moveByLink(int fromDirectory, const char* fromName, int toDirectory,
                        const char* toName, int scratch) {
    if (::linkat(fromDirectory, fromName, toDirectory, toName, 0) != 0)
        return Error::fromErrno(errno, "move");
    if (scratch < 0) {
        if (::unlinkat(fromDirectory, fromName, 0) == 0 || errno == ENOENT)
            return {};
    } else if (::renameat(fromDirectory, fromName, scratch, toName) == 0) {
        if (::renameat(scratch, toName, toDirectory, toName) == 0) {
            ::unlinkat(scratch, toName, 0);
            return {};
        }
        const int error = errno;
        if (::linkat(scratch, toName, fromDirectory, fromName, 0) == 0)
            ::unlinkat(scratch, toName, 0);
        errno = error;
    } else if (errno == ENOENT) {
        return {}; // another program removed it
    }
    const Error error = Error::fromErrno(errno, "move");
    ::unlinkat(toDirectory, toName, 0);
    return error;
}

std::int64_t nanoseconds(const statx_timestamp& time) {
    constexpr std::int64_t kPerSecond = 1000000000;
    std::int64_t result = 0;
    return __builtin_mul_overflow(time.tv_sec, kPerSecond, &result) ? 0 : result + time.tv_nsec;
}

/// Limits the value, because some file systems report impossible numbers.
std::int64_t bounded(std::uint64_t number, std::int64_t unit) {
    const auto most = static_cast<std::uint64_t>(INT64_MAX / unit);
    return static_cast<std::int64_t>(std::min(number, most)) * unit;
}

/// Sets the mode again, because a umask may have removed the user's permissions.
void grant(int directory, const char* name, mode_t mode) {
    const auto status = fileStatus(directory, name);
    if (status && (status->mode & 07777) != mode)
        ::fchmodat(directory, name, mode, 0); // may fail on file systems without permissions
}

} // namespace

bool FileStatus::isFolder() const {
    return S_ISDIR(mode);
}
bool FileStatus::isLink() const {
    return S_ISLNK(mode);
}
bool FileStatus::isRegularFile() const {
    return S_ISREG(mode);
}

Result<FileStatus> fileStatus(int directory, const char* name) {
    struct statx raw {};
    const int flags = AT_SYMLINK_NOFOLLOW | AT_NO_AUTOMOUNT | (*name == '\0' ? AT_EMPTY_PATH : 0);
    if (::statx(directory, name, flags, STATX_BASIC_STATS | STATX_BTIME | STATX_MNT_ID, &raw) != 0)
        return Error::fromErrno(errno, "look at");
    FileStatus status;
    status.identity = {makedev(raw.stx_dev_major, raw.stx_dev_minor), raw.stx_ino};
    status.mountId = raw.stx_mnt_id;
    status.isMountPoint = (raw.stx_attributes & STATX_ATTR_MOUNT_ROOT) != 0;
    status.mode = raw.stx_mode;
    status.owner = raw.stx_uid;
    status.size = bounded(raw.stx_size, 1);
    status.allocatedBytes = bounded(raw.stx_blocks, kBlockBytes);
    status.modifiedSeconds = raw.stx_mtime.tv_sec;
    status.modifiedFraction = raw.stx_mtime.tv_nsec;
    if ((raw.stx_mask & STATX_BTIME) != 0)
        status.birthNanoseconds = nanoseconds(raw.stx_btime);
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
                                  const char* toName, const std::function<int()>& scratch) {
    if (::renameat2(fromDirectory, fromName, toDirectory, toName, RENAME_NOREPLACE) == 0)
        return {};
    if (!isUnsupported(errno))
        return Error::fromErrno(errno, "move");
    const auto status = fileStatus(fromDirectory, fromName);
    if (!status)
        return status.error();
    const int ours = scratch ? scratch() : -1;
    return status->isFolder() || ours == toDirectory
               ? moveOntoNothing(fromDirectory, fromName, toDirectory, toName)
               : moveByLink(fromDirectory, fromName, toDirectory, toName, ours);
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
    for (const bool isSecond : {false, true}) {
        if (::mkdir(path.c_str(), mode) == 0) {
            if (const auto made = fileStatus(path); made && (made->mode & S_IRWXU) != S_IRWXU)
                ::chmod(path.c_str(), (made->mode & 07777) | S_IRWXU);
            return {};
        }
        if (errno == EEXIST)
            return {};
        if (isSecond || errno != ENOENT || !path.has_relative_path())
            break;
        if (auto made = makeFolders(path.parent_path(), mode); !made)
            return made;
    }
    return Error::fromErrno(errno, "make the folder", path);
}

Result<void> makeFolder(int directory, const char* name, mode_t mode) {
    if (::mkdirat(directory, name, mode) != 0)
        return Error::fromErrno(errno, "make the folder");
    grant(directory, name, mode);
    return {};
}

Result<std::string> readRegularFile(int directory, const char* name, std::size_t mostBytes,
                                    FileStatus* status) {
    const auto before = fileStatus(
        directory, name); // checked first, because opening a device can have side effects
    if (!before)
        return before.error();
    if (status != nullptr)
        *status = *before;
    if (!before->isRegularFile())
        return Error::fromErrno(before->isFolder() ? EISDIR : EINVAL, "read");
    const FileDescriptor file(
        ::openat(directory, name, O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY));
    if (!file)
        return Error::fromErrno(errno, "read");
    std::string text;
    char buffer[16384];
    for (;;) {
        const ssize_t count = ::read(file.get(), buffer, sizeof buffer);
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return Error::fromErrno(errno, "read");
        text.append(buffer, static_cast<std::size_t>(count));
        if (text.size() > mostBytes)
            return Error::fromErrno(EFBIG, "read");
        if (count < ssize_t(sizeof buffer))
            return text;
    }
}

} // namespace vexmoor
