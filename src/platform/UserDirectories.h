#pragma once

#include "base/Path.h"

#include <sys/types.h>

namespace vexmoor {

/// Where the user's things lie.
struct UserDirectories {
    Path home;
    Path dataHome; ///< for the user's own data, shared by programs
    uid_t user = 0;
    Path configHome{}; ///< for the user's configuration, shared by programs
    /// The home folder that the system has for the user, whatever the environment says.
    Path accountHome{};

    /// Of the running process.
    static UserDirectories ofProcess();

    /// Where this program keeps its own.
    [[nodiscard]] Path ownData() const { return dataHome / "vexmoor"; }
};

} // namespace vexmoor
