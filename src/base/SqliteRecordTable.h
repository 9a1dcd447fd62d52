#pragma once

#include "base/RecordTable.h"
#include "base/SqliteUserDefaults.h"

#include <variant>
#include <vector>

namespace vexmoor {

/// The database table "records" (docs/defaults-database.md), owned by its SqliteUserDefaults.
class SqliteRecordTable : public RecordTable {
  public:
    explicit SqliteRecordTable(SqliteUserDefaults& store) : m_store(store) {}

    void append(Record record) override;
    void remove(std::set<std::string> ids) override;
    void trim(std::int64_t most) override;
    Result<void> visit(const Visitor& visitor) const override;

    /// Stores the changes of failed transactions in the current transaction.
    Result<void> storeLeftOver();
    /// Must be called after each transaction.
    void ended(bool isCommitted);

  private:
    struct Trim {
        std::int64_t most;
    };
    using Ids = std::set<std::string>;
    using Change = std::variant<Record, Ids, Trim>;

    void make(Change change);
    Result<void> execute(const Change& change);
    Result<void> insert(const Record& record);
    Result<void> erase(const Ids& ids);
    Result<void> eraseOldest(std::int64_t most);
    Result<std::vector<std::int64_t>> keysOf(Ids ids) const;
    Result<std::int64_t> count();

    SqliteUserDefaults& m_store;
    SqliteConnection::Statement m_insertion; ///< prepared on first use
    std::vector<Change> m_changes;           ///< not committed yet
    std::int64_t m_added = 0;   ///< number of records that the current transaction adds
    bool m_isCountKnown = true; ///< whether the stored count is valid
};

} // namespace vexmoor
