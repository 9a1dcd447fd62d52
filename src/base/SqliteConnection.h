#pragma once

#include "base/UserDefaults.h"

#include <filesystem>
#include <memory>

struct sqlite3;
struct sqlite3_stmt;

namespace vexmoor {

/// A connection to an SQLite database: opens, queries and syncs it. Not thread-safe.
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

    /// Opens the file; with readWrite, creates it if it is missing. `isImmutable` reads it without
    /// locks and log.
    Result<void> open(Access access, bool isImmutable);
    void close() { m_database.reset(); }
    [[nodiscard]] bool isOpen() const { return m_database != nullptr; }

    Result<void> execute(const char* sql, const char* operation);
    Result<void> prepare(const char* sql, const char* operation, Statement& statement) const;

    /// Returns the format version that the application stores in the database's header.
    [[nodiscard]] Result<int> userVersion() const;

    /// Sets the durability of the next transactions. Without a sync at each commit, a power cut
    /// loses the newest commits only.
    void prepareFor(Durability durability);

    /// Checkpoints the log into the database, which syncs both.
    Result<void> foldLog();

    /// Rolls back a transaction that could not be committed, if one is open.
    void rollBack();

    /// Returns the error of the last call that failed.
    [[nodiscard]] Error lastError(const char* operation) const;
    /// Returns the error for a database that is not open.
    [[nodiscard]] Error notOpen(const char* operation) const;

    [[nodiscard]] const std::filesystem::path& file() const { return m_file; }

  private:
    std::filesystem::path m_file;
    std::unique_ptr<sqlite3, Closer> m_database;
    Durability m_durability = Durability::onDisk; ///< the connection's current setting
};

} // namespace vexmoor
