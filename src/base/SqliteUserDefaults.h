#pragma once

#include "base/RecordTable.h"
#include "base/SqliteConnection.h"

#include <map>
#include <memory>
#include <set>

namespace vexmoor {

class SqliteRecordTable;

/// UserDefaults in one SQLite database (docs/defaults-database.md). Reads all values on opening;
/// the owner must be the only writer while it is open. Not thread-safe.
class SqliteUserDefaults : public UserDefaults {
  public:
    using Access = SqliteConnection::Access;
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

    SqliteUserDefaults(std::filesystem::path file, FailureHandler onFailure);
    Result<void> connect(Access access);
    Result<void> load();
    Result<void> store(std::string_view key, const std::optional<Value>& value);
    Result<void> storeLeftOver();

    SqliteConnection m_connection;
    FailureHandler m_onFailure;
    std::unique_ptr<SqliteRecordTable> m_records;
    SqliteConnection::Statement m_insertion; ///< prepared on first use
    SqliteConnection::Statement m_removal;
    std::map<std::string, Value, std::less<>> m_values;
    using Keys = std::set<std::string, std::less<>>;
    Keys m_leftOver; ///< keys whose values could not be stored yet
    Keys m_assigned; ///< keys assigned in the current transaction
    std::optional<std::filesystem::path> m_setAside;
    bool m_immutable = false;  ///< opened without locks and log
    bool m_hasRecords = false; ///< false for a version 1 database that is opened read-only
    bool m_inTransaction = false;
    std::optional<Error> m_transactionFailure;
};

} // namespace vexmoor
