#pragma once

#include "base/SqliteUserDefaults.h"
#include "disposal/Journal.h"
#include "intake/WriterLock.h"
#include "platform/UserDirectories.h"

#include <functional>
#include <memory>

namespace vexmoor {

/// The desktop program's stores and the lock that allows writing them, held until it quits.
class Stores {
  public:
    /// Fails if the database cannot be opened for writing.
    static Result<std::unique_ptr<Stores>> open(const UserDirectories& directories,
                                                WriterLock lock);

    /// Sets the function that is called, on the main thread, for each assignment that could not be
    /// stored.
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
