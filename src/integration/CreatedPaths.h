#pragma once

#include "base/Path.h"
#include "base/Result.h"
#include "platform/UserDirectories.h"

#include <set>

namespace vexmoor {

/// The record of the folders and shared files that we created, so that they can be removed when
/// they are empty again, and those that were there before cannot. It is a file of URIs beside the
/// database. A lost record leaves an empty file or folder behind, nothing worse, so that failures
/// to write it are not reported.
class CreatedPaths {
  public:
    explicit CreatedPaths(const UserDirectories& directories);

    /// Makes the folder and those above it that are missing.
    Result<void> makeFolders(const Path& folder);

    void add(const Path& file);
    void forget(const Path& file);
    [[nodiscard]] bool contains(const Path& file) const;

    /// Removes those of our folders that are empty.
    void removeEmptyFolders();

  private:
    void save() const;

    Path m_file;
    std::set<std::string> m_paths;
};

} // namespace vexmoor
