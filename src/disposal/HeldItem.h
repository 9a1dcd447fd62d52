#pragma once

#include "platform/FileManager.h"

#include <memory>
#include <string>

namespace vexmoor {

/// A folder that is kept open while its items are processed.
struct HeldFolder {
    Path path;
    FileDescriptor descriptor;
    FileStatus status;
};

/// An item addressed by folder descriptor and name, so that it stays the same if its path changes.
struct HeldItem {
    Path path;
    std::shared_ptr<const HeldFolder> parent;
    std::string name;
    FileStatus status;

    [[nodiscard]] int folder() const { return parent->descriptor.get(); }
};

/// Opens folders and caches the last one, since a batch's items are usually in one folder.
class FolderKeeper {
  public:
    Result<std::shared_ptr<const HeldFolder>> open(const Path& folder);

    /// Opens the item at a standardized path, which must not be the root.
    Result<HeldItem> hold(const Path& path);

  private:
    std::shared_ptr<const HeldFolder> m_last;
};

} // namespace vexmoor
