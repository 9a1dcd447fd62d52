#pragma once

#include "base/Path.h"

#include <string>
#include <string_view>

namespace vexmoor::test {

/// A temporary folder, removed with its contents on destruction.
class TemporaryDirectory {
  public:
    TemporaryDirectory();
    ~TemporaryDirectory();
    TemporaryDirectory(const TemporaryDirectory&) = delete;
    TemporaryDirectory& operator=(const TemporaryDirectory&) = delete;

    [[nodiscard]] const Path& path() const { return m_path; }
    friend Path operator/(const TemporaryDirectory& directory, const Path& name) {
        return directory.path() / name;
    }

    /// Writes a file and creates missing folders; throws on failure.
    Path write(const Path& name, std::string_view bytes) const;

  private:
    Path m_path;
};

/// Returns the file's content; throws on failure.
std::string contents(const Path& file);

} // namespace vexmoor::test
