#include "WriterLock.h"

#include "platform/FileManager.h"

#include <fcntl.h>
#include <sys/file.h>

#include <cerrno>
#include <chrono>
#include <ctime>

namespace vexmoor {

namespace {

constexpr timespec kPause{0, 50'000'000};
constexpr char kDesktop = 'D';
constexpr char kCommand = 'C';

Result<FileDescriptor> openLock(const Path& file) {
    if (auto made = makeFolders(file.parent_path(), 0700); !made)
        return std::move(made).error();
    FileDescriptor descriptor(::open(file.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600));
    if (!descriptor)
        return Error::fromErrno(errno, "open", file);
    return descriptor;
}

/// Returns true if the lock was acquired, false if another process holds it.
Result<bool> lockNow(int descriptor, const Path& file, int kind) {
    if (::flock(descriptor, kind | LOCK_NB) == 0)
        return true;
    if (errno == EWOULDBLOCK || errno == EINTR)
        return false;
    return Error::fromErrno(errno, "lock", file);
}

} // namespace

Result<std::optional<WriterLock>> WriterLock::tryTake(const Path& file, Role role) {
    auto descriptor = openLock(file);
    if (!descriptor)
        return std::move(descriptor).error();
    auto locked = lockNow(descriptor->get(), file, LOCK_EX);
    if (!locked)
        return std::move(locked).error();
    if (!*locked)
        return std::optional<WriterLock>();
    const char letter = role == Role::desktop ? kDesktop : kCommand;
    if (::pwrite(descriptor->get(), &letter, 1, 0) != 1)
        return Error::fromErrno(errno, "write", file);
    return std::optional(WriterLock(*std::move(descriptor)));
}

Result<std::optional<WriterLock::Role>> WriterLock::holder(const Path& file) {
    const FileDescriptor descriptor(::open(file.c_str(), O_RDONLY | O_CLOEXEC));
    if (!descriptor)
        return errno == ENOENT ? Result<std::optional<Role>>(std::optional<Role>())
                               : Error::fromErrno(errno, "open", file);
    // A shared lock, so that two concurrent queries do not see each other as holders; released with
    // the descriptor.
    auto free = lockNow(descriptor.get(), file, LOCK_SH);
    if (!free)
        return std::move(free).error();
    if (*free)
        return std::optional<Role>();
    char letter = kCommand;
    if (::pread(descriptor.get(), &letter, 1, 0) < 0)
        return Error::fromErrno(errno, "read", file);
    return std::optional(letter == kDesktop ? Role::desktop : Role::command);
}

Result<std::optional<WriterLock>> WriterLock::take(const Path& file, Role role,
                                                   const std::function<bool()>& stopsWaiting) {
    for (;;) {
        auto taken = tryTake(file, role);
        if (!taken || *taken)
            return taken;
        auto other = holder(file);
        if (!other)
            return std::move(other).error();
        if (*other == Role::desktop || stopsWaiting())
            return std::optional<WriterLock>();
        ::nanosleep(&kPause, nullptr);
    }
}

} // namespace vexmoor
