#include "Stores.h"

#include <utility>

namespace vexmoor {

Stores::Stores(UserDirectories directories, WriterLock lock)
    : m_directories(std::move(directories)), m_lock(std::move(lock)),
      m_journal(m_directories.ownData() / "journal") {}

Result<std::unique_ptr<Stores>> Stores::open(const UserDirectories& directories, WriterLock lock) {
    std::unique_ptr<Stores> stores(new Stores(directories, std::move(lock)));
    auto defaults = SqliteUserDefaults::open(directories.ownData() / "defaults.db",
                                             SqliteUserDefaults::Access::readWrite,
                                             [stores = stores.get()](const Error& error) {
                                                 if (stores->m_onFailure)
                                                     stores->m_onFailure(error);
                                             });
    if (!defaults)
        return std::move(defaults).error();
    stores->m_defaults = *std::move(defaults);
    return stores;
}

} // namespace vexmoor
