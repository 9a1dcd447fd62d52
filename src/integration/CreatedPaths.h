#pragma once

#include "base/Path.h"
#include "base/Result.h"
#include "platform/UserDirectories.h"

#include <set>

namespace vexmoor {

/// Records the folders and shared files that we created, so that only those are removed when they
/// are empty again. Stored as a file of URIs beside the database. Write failures are not reported,
/// since a lost record leaves only an empty file or folder behind.
class CreatedPaths {
  public:
    explicit CreatedPaths(const UserDirectories& directories);

    /// Creates the folder and its missing parents.
    Result<void> makeFolders(const Path& folder);

    void add(const Path& file);
    void forget(const Path& file);
    [[nodiscard]] bool contains(const Path& file) const;

    /// Removes our folders that are empty.
    void removeEmptyFolders();

  private:
    void save() const;

    Path m_file;
    std::set<std::string> m_paths;
};

} // namespace vexmoor
