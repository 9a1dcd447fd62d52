#pragma once

#include "base/SqliteUserDefaults.h"
#include "disposal/Journal.h"
#include "intake/WriterLock.h"
#include "platform/UserDirectories.h"

#include <functional>
#include <memory>

namespace vexmoor {

/// What the desktop program keeps on the disk, and the right to change it, for as long as it runs.
class Stores {
  public:
    /// Fails where the database cannot be opened for writing.
    static Result<std::unique_ptr<Stores>> open(const UserDirectories& directories,
                                                WriterLock lock);

    /// Called, on the main thread, for each assignment that could not be stored.
    void setFailureHandler(std::function<void(const Error&)> handler) {
        m_onFailure = std::move(handler);
    }

    [[nodiscard]] const UserDirectories& directories() const { return m_directories; }
    SqliteUserDefaults& defaults() { return *m_defaults; }
    Journal& journal() { return m_journal; }

  private:
    Stores(UserDirectories directories, WriterLock lock);

    UserDirectories m_directories;
    WriterLock m_lock;
    Journal m_journal;
    std::function<void(const Error&)> m_onFailure;
    std::unique_ptr<SqliteUserDefaults> m_defaults;
};

} // namespace vexmoor
