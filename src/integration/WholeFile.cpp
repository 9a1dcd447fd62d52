#include "WholeFile.h"

#include "base/FileDescriptor.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <cstdio>

namespace vexmoor {

namespace {

constexpr mode_t kRunnable = S_IXUSR | S_IXGRP | S_IXOTH;

bool writeAll(int file, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t count = ::write(file, bytes.data(), bytes.size());
        if (count < 0 && errno != EINTR)
            return false;
        if (count > 0)
            bytes.remove_prefix(static_cast<std::size_t>(count));
    }
    return true;
}

Path behindLinks(const Path& file) {
    std::error_code code;
    const Path target = std::filesystem::canonical(file, code);
    return code ? file : target;
}

} // namespace

Result<std::string> readWholeFile(const Path& file, std::size_t limit) {
    const FileDescriptor descriptor(
        ::open(file.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    if (!descriptor)
        return Error::fromErrno(errno, "open", file);
    struct stat found {};
    if (::fstat(descriptor.get(), &found) != 0)
        return Error::fromErrno(errno, "examine", file);
    if (!S_ISREG(found.st_mode))
        return Error::fromErrno(EINVAL, "read (not a regular file)", file);
    std::string text;
    char buffer[16384];
    for (;;) {
        const ssize_t count = ::read(descriptor.get(), buffer, sizeof buffer);
        if (count == 0)
            return text;
        if (count > 0 && text.size() + static_cast<std::size_t>(count) > limit)
            return Error::fromErrno(EFBIG, "read", file);
        if (count > 0)
            text.append(buffer, static_cast<std::size_t>(count));
        else if (errno != EINTR)
            return Error::fromErrno(errno, "read", file);
    }
}

Result<void> replaceWholeFile(const Path& file, std::string_view bytes, mode_t mode) {
    const Path target = behindLinks(file);
    struct stat before {};
    const bool replaces = ::stat(target.c_str(), &before) == 0;
    const Path temporary = target.native() + ".vexmoor-" + std::to_string(::getpid());
    FileDescriptor descriptor(
        ::open(temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW, mode));
    if (!descriptor)
        return Error::fromErrno(errno, "open", temporary);
    const mode_t kept = (before.st_mode & 07777) | (mode & kRunnable);
    if (!writeAll(descriptor.get(), bytes) || (replaces && ::fchmod(descriptor.get(), kept) != 0) ||
        ::fsync(descriptor.get()) != 0 || !descriptor.close() ||
        ::rename(temporary.c_str(), target.c_str()) != 0) {
        const Error error = Error::fromErrno(errno, "write", target);
        ::unlink(temporary.c_str());
        return error;
    }
    return {};
}

} // namespace vexmoor
