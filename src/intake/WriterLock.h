#pragma once

#include "base/FileDescriptor.h"
#include "base/Path.h"
#include "base/Result.h"

#include <functional>
#include <optional>

namespace vexmoor {

/// The right to change the stores and the user's files: an exclusive lock (flock) on a file beside
/// the database, held by the desktop program as long as it runs, by a command as long as it works.
/// The kernel takes it back from a process that dies.
class WriterLock {
  public:
    enum class Role { command, desktop };

    /// Its file's name, in the folder of the program's own data.
    static constexpr const char* kFileName = "lock";

    /// Takes the lock at once; nothing where somebody holds it.
    static Result<std::optional<WriterLock>> tryTake(const Path& file, Role role);

    /// The role of whoever holds the lock, as told in the file; nothing where nobody does.
    static Result<std::optional<Role>> holder(const Path& file);

    /// Waits for other commands to end; nothing where the desktop program holds the lock, or
    /// `stopsWaiting` said so. It is asked about 20 times a second.
    static Result<std::optional<WriterLock>> take(const Path& file, Role role,
                                                  const std::function<bool()>& stopsWaiting);

  private:
    explicit WriterLock(FileDescriptor file) : m_file(std::move(file)) {}

    FileDescriptor m_file;
};

} // namespace vexmoor
