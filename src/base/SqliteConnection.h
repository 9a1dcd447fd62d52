#pragma once

#include "base/UserDefaults.h"

#include <filesystem>
#include <memory>

struct sqlite3;
struct sqlite3_stmt;

namespace vexmoor {

/// The connection to a database: opens, syncs and queries it. One thread.
class SqliteConnection {
  public:
    enum class Access { readWrite, readOnly };
    using Durability = UserDefaults::Durability;

    struct Closer {
        void operator()(sqlite3* database) const;
        void operator()(sqlite3_stmt* statement) const;
    };
    using Statement = std::unique_ptr<sqlite3_stmt, Closer>;

    explicit SqliteConnection(std::filesystem::path file) : m_file(std::move(file)) {}

    /// Opens the file, made where it is missing and may be written. `isImmutable`: it is read
    /// without a lock or a log.
    Result<void> open(Access access, bool isImmutable);
    void close() { m_database.reset(); }
    [[nodiscard]] bool isOpen() const { return m_database != nullptr; }

    Result<void> execute(const char* sql, const char* operation);
    Result<void> prepare(const char* sql, const char* operation, Statement& statement) const;

    /// A number that the application keeps in the database's header.
    [[nodiscard]] Result<int> userVersion() const;

    /// What the next transactions promise. A log that is not synced at each commit loses the newest
    /// of them in a power cut, nothing else.
    void prepareFor(Durability durability);

    /// Folds the log into the database, which syncs both.
    Result<void> foldLog();

    /// Ends a transaction that could not be committed, where one is still open.
    void rollBack();

    /// Of the last call that failed.
    [[nodiscard]] Error lastError(const char* operation) const;
    /// The error of a database that is not open.
    [[nodiscard]] Error notOpen(const char* operation) const;

    [[nodiscard]] const std::filesystem::path& file() const { return m_file; }

  private:
    std::filesystem::path m_file;
    std::unique_ptr<sqlite3, Closer> m_database;
    Durability m_durability = Durability::onDisk; ///< that the connection is set to
};

} // namespace vexmoor
