#pragma once

#include "base/FileDescriptor.h"
#include "base/Path.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace vexmoor {

/// The mounts visible to this process. Reads the table again only if the kernel reports a change.
/// Empty if it cannot be read. Not thread-safe.
class MountTable {
  public:
    /// Returns the root folder of the mount.
    std::optional<Path> mountPoint(std::uint64_t mountId);

    /// Returns a mount point strictly below the folder (a canonical path), if any.
    std::optional<Path> mountBelow(const Path& folder);

    struct Mount {
        std::uint64_t id = 0;
        std::string device; ///< "major:minor"
        StoredPath root;    ///< the mounted part of the file system, as a path within it
        StoredPath point;
        std::string type;
    };

    std::optional<Mount> mount(std::uint64_t mountId);

    /// Returns all mounts of the same file system, including this one.
    std::vector<Mount> mountsOfSame(const Mount& mount);

    /// Returns all mounts in mount order: a later one may hide earlier ones.
    std::vector<Mount> all();

    /// True if the mount table could not be read.
    bool isUnknown();

  private:
    void refresh();

    FileDescriptor m_source;
    std::vector<Mount> m_mounts;
};

} // namespace vexmoor
