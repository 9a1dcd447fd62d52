#pragma once

#include "base/FileDescriptor.h"
#include "base/Path.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace vexmoor {

/// The mounts that this process sees; read again only when the kernel says that they changed.
/// Where they cannot be read the table is empty. One thread.
class MountTable {
  public:
    /// The top folder of the mount.
    std::optional<Path> mountPoint(std::uint64_t mountId);

    /// A mount point strictly below the folder (a canonical path), if there is one.
    std::optional<Path> mountBelow(const Path& folder);

    struct Mount {
        std::uint64_t id = 0;
        std::string device; ///< "major:minor"
        StoredPath root;    ///< what of the file system is mounted, as a path within it
        StoredPath point;
        std::string type;
    };

    std::optional<Mount> mount(std::uint64_t mountId);

    /// The mounts of the same file system, that one among them.
    std::vector<Mount> mountsOfSame(const Mount& mount);

    /// All of them, those that hide others after these.
    std::vector<Mount> all();

    /// Whether nothing is known of any mount.
    bool isUnknown();

  private:
    void refresh();

    FileDescriptor m_source;
    std::vector<Mount> m_mounts;
};

} // namespace vexmoor
