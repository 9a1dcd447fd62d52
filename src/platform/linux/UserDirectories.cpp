#include "platform/UserDirectories.h"

#include <pwd.h>
#include <unistd.h>

#include <cstdlib>

namespace vexmoor {

// The XDG Base Directory Specification 0.8: a relative path in a variable is not used.
UserDirectories UserDirectories::ofProcess() {
    UserDirectories directories;
    directories.user = geteuid();
    if (const char* home = std::getenv("HOME"); home != nullptr && home[0] == '/')
        directories.home = standardized(home);
    else if (const passwd* entry = getpwuid(directories.user); entry != nullptr)
        directories.home = standardized(entry->pw_dir);
    else
        directories.home = "/";
    const char* data = std::getenv("XDG_DATA_HOME");
    directories.dataHome = data != nullptr && data[0] == '/'
                               ? standardized(data)
                               : directories.home / ".local" / "share";
    return directories;
}

} // namespace vexmoor
