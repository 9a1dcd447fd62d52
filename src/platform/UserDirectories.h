#pragma once

#include "base/Path.h"

#include <sys/types.h>

namespace vexmoor {

/// The user's folders.
struct UserDirectories {
    Path home;
    Path dataHome; ///< user data (XDG_DATA_HOME)
    uid_t user = 0;
    Path configHome{}; ///< configuration (XDG_CONFIG_HOME)
    /// The home folder in the system's account database, independent of the environment.
    Path accountHome{};

    /// Returns the folders of the current process.
    static UserDirectories ofProcess();

    /// Returns the program's own data folder.
    [[nodiscard]] Path ownData() const { return dataHome / "vexmoor"; }
};

} // namespace vexmoor
