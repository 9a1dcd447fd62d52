#include "platform/UserDirectories.h"

#include <pwd.h>
#include <unistd.h>

#include <cstdlib>

namespace vexmoor {

namespace {

/// Returns the folder that the variable names, or `otherwise`.
Path userFolder(const char* variable, const Path& otherwise) {
    const char* const value = std::getenv(variable);
    return value != nullptr && value[0] == '/' ? standardized(value) : otherwise;
}

} // namespace

// The XDG Base Directory Specification 0.8 says to ignore relative paths in the variables.
UserDirectories UserDirectories::ofProcess() {
    UserDirectories directories;
    directories.user = geteuid();
    const passwd* const entry = getpwuid(directories.user);
    if (entry != nullptr && entry->pw_dir != nullptr && entry->pw_dir[0] == '/')
        directories.accountHome = standardized(entry->pw_dir);
    if (const char* home = std::getenv("HOME"); home != nullptr && home[0] == '/')
        directories.home = standardized(home);
    else
        directories.home = directories.accountHome.empty() ? "/" : directories.accountHome;
    directories.dataHome = userFolder("XDG_DATA_HOME", directories.home / ".local" / "share");
    directories.configHome = userFolder("XDG_CONFIG_HOME", directories.home / ".config");
    return directories;
}

} // namespace vexmoor
