#pragma once

#include "base/FileDescriptor.h"
#include "base/Path.h"
#include "base/Result.h"

#include <functional>
#include <optional>

namespace vexmoor {

/// The right to change the stores and the user's files: an exclusive lock (flock) on a file beside
/// the database. The desktop program holds it while it runs, a command while it works. The kernel
/// releases it when the process dies.
class WriterLock {
  public:
    enum class Role { command, desktop };

    /// The name of the lock file in the program's data folder.
    static constexpr const char* kFileName = "lock";

    /// Acquires the lock without waiting; nullopt if another process holds it.
    static Result<std::optional<WriterLock>> tryTake(const Path& file, Role role);

    /// Returns the role of the lock's holder, as recorded in the file; nullopt if it is free.
    static Result<std::optional<Role>> holder(const Path& file);

    /// Acquires the lock, waiting for other commands to end. Returns nullopt if the desktop program
    /// holds it or `stopsWaiting` returns true, which is called about 20 times a second.
    static Result<std::optional<WriterLock>> take(const Path& file, Role role,
                                                  const std::function<bool()>& stopsWaiting);

  private:
    explicit WriterLock(FileDescriptor file) : m_file(std::move(file)) {}

    FileDescriptor m_file;
};

} // namespace vexmoor
