#pragma once

#include "base/Path.h"

#include <string>
#include <string_view>

namespace vexmoor::test {

/// An empty folder of its own, removed with all that is in it at the end.
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

    /// Writes a file, its folders made where they are missing; throws when it cannot.
    Path write(const Path& name, std::string_view bytes) const;

  private:
    Path m_path;
};

/// The whole file; throws when it cannot be read.
std::string contents(const Path& file);

} // namespace vexmoor::test
