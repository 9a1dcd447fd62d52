#pragma once

#include "base/FileDescriptor.h"
#include "base/Path.h"

#include <cstdint>
#include <optional>
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

  private:
    struct Mount {
        std::uint64_t id;
        std::string point;
    };

    void refresh();

    FileDescriptor m_source;
    std::vector<Mount> m_mounts;
};

} // namespace vexmoor
