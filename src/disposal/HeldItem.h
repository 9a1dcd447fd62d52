#pragma once

#include "platform/FileManager.h"

#include <memory>
#include <string>

namespace vexmoor {

/// A folder that is kept open while items in it are acted on.
struct HeldFolder {
    Path path;
    FileDescriptor descriptor;
    FileStatus status;
};

/// An item that is acted on as (folder descriptor, name), whatever its path comes to mean
/// meanwhile.
struct HeldItem {
    Path path;
    std::shared_ptr<const HeldFolder> parent;
    std::string name;
    FileStatus status;

    [[nodiscard]] int folder() const { return parent->descriptor.get(); }
};

/// Opens folders, and keeps the last one: the items of a batch mostly lie side by side.
class FolderKeeper {
  public:
    Result<std::shared_ptr<const HeldFolder>> open(const Path& folder);

    /// Holds the item at a standardized path other than the root.
    Result<HeldItem> hold(const Path& path);

  private:
    std::shared_ptr<const HeldFolder> m_last;
};

} // namespace vexmoor
