#pragma once

#include "base/RecordTable.h"
#include "base/SqliteConnection.h"

#include <map>
#include <memory>
#include <set>

namespace vexmoor {

class SqliteRecordTable;

/// UserDefaults in one SQLite database (docs/defaults-database.md). The values are read when it is
/// opened; the owner is the only writer while it is open. One thread.
class SqliteUserDefaults : public UserDefaults {
  public:
    using Access = SqliteConnection::Access;
    using FailureHandler = std::function<void(const Error&)>;

    /// Opens the database, made when it is missing (with readOnly: taken as empty). A corrupt one
    /// is renamed to "<name>.corrupt-<n>" and replaced by a fresh one (with readOnly: an error).
    /// Fails where the folder or file cannot be read or written, or is locked by another program
    /// for over five seconds.
    static Result<std::unique_ptr<SqliteUserDefaults>>
    open(const std::filesystem::path& file, Access access, FailureHandler onFailure);

    ~SqliteUserDefaults() override;

    [[nodiscard]] std::optional<Value> value(std::string_view key) const override;
    void assign(std::string_view key, std::optional<Value> value) override;
    Result<void> transaction(const std::function<void()>& body,
                             Durability durability = Durability::onDisk) override;
    Result<void> makeDurable() override;

    /// The table of records beside the values; lives as long as this.
    RecordTable& records();

    /// Where the corrupt database that was found at opening lies now.
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
    SqliteConnection::Statement m_insertion; ///< made when it is first needed
    SqliteConnection::Statement m_removal;
    std::map<std::string, Value, std::less<>> m_values;
    using Keys = std::set<std::string, std::less<>>;
    Keys m_leftOver; ///< whose values could not be stored yet
    Keys m_assigned; ///< in the transaction that runs
    std::optional<std::filesystem::path> m_setAside;
    bool m_immutable = false;  ///< read without a lock or a log
    bool m_hasRecords = false; ///< a database of version 1 that is only read has no such table
    bool m_inTransaction = false;
    std::optional<Error> m_transactionFailure;
};

} // namespace vexmoor
