#pragma once

#include "base/RecordTable.h"
#include "base/UserDefaults.h"

#include <map>
#include <memory>
#include <set>

struct sqlite3;
struct sqlite3_stmt;

namespace vexmoor {

class SqliteRecordTable;

/// UserDefaults in one SQLite database (docs/defaults-database.md). Reads all values on opening;
/// the owner must be the only writer while it is open. Not thread-safe.
class SqliteUserDefaults : public UserDefaults {
  public:
    enum class Access { readWrite, readOnly };
    using FailureHandler = std::function<void(const Error&)>;

    /// Opens the database and creates it if it is missing (with readOnly: treats it as empty).
    /// Renames a corrupt database to "<name>.corrupt-<n>" and creates a new one (with readOnly:
    /// fails). Fails if the folder or file cannot be read or written, or if another program locks
    /// it for more than five seconds.
    static Result<std::unique_ptr<SqliteUserDefaults>>
    open(const std::filesystem::path& file, Access access, FailureHandler onFailure);

    ~SqliteUserDefaults() override;

    [[nodiscard]] std::optional<Value> value(std::string_view key) const override;
    void assign(std::string_view key, std::optional<Value> value) override;
    Result<void> transaction(const std::function<void()>& body,
                             Durability durability = Durability::onDisk) override;
    Result<void> makeDurable() override;

    /// Returns the table of records. It lives as long as this object.
    RecordTable& records();

    /// Returns the new path of the corrupt database that open() replaced, if any.
    [[nodiscard]] const std::optional<std::filesystem::path>& setAside() const {
        return m_setAside;
    }

  private:
    friend class SqliteRecordTable;

    struct Closer {
        void operator()(sqlite3* database) const;
        void operator()(sqlite3_stmt* statement) const;
    };
    using Statement = std::unique_ptr<sqlite3_stmt, Closer>;

    SqliteUserDefaults(std::filesystem::path file, FailureHandler onFailure);
    Result<void> connect(Access access);
    Result<void> prepare(const char* sql, const char* operation, Statement& statement) const;
    Result<int> formatVersion();
    Result<void> load();
    Result<void> execute(const char* statement, const char* operation);
    Result<void> store(std::string_view key, const std::optional<Value>& value);
    Result<void> storeLeftOver();
    void prepareFor(Durability durability);
    [[nodiscard]] Error lastError(const char* operation) const;

    std::filesystem::path m_file;
    FailureHandler m_onFailure;
    std::unique_ptr<sqlite3, Closer> m_database;
    std::unique_ptr<SqliteRecordTable> m_records;
    Statement m_insertion; ///< prepared on first use
    Statement m_removal;
    std::map<std::string, Value, std::less<>> m_values;
    using Keys = std::set<std::string, std::less<>>;
    Keys m_leftOver; ///< keys whose values could not be stored yet
    Keys m_assigned; ///< keys assigned in the current transaction
    std::optional<std::filesystem::path> m_setAside;
    bool m_immutable = false;  ///< opened without locks and log
    bool m_hasRecords = false; ///< false for a version 1 database that is opened read-only
    bool m_inTransaction = false;
    std::optional<Error> m_transactionFailure;
    Durability m_durability = Durability::onDisk; ///< the connection's current setting
};

/// The error category of SQLite's result codes.
const std::error_category& sqliteCategory();

/// Returns the code with that name, or nullopt if the category has no message for it.
std::optional<std::error_code> databaseCodeNamed(std::string_view name);

} // namespace vexmoor
