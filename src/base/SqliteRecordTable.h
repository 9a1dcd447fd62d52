#pragma once

#include "base/RecordTable.h"
#include "base/SqliteUserDefaults.h"

#include <variant>
#include <vector>

namespace vexmoor {

/// The table "records" of the database (docs/defaults-database.md). Part of its SqliteUserDefaults.
class SqliteRecordTable : public RecordTable {
  public:
    explicit SqliteRecordTable(SqliteUserDefaults& store) : m_store(store) {}

    void append(Record record) override;
    void remove(std::set<std::string> ids) override;
    void trim(std::int64_t most) override;
    Result<void> visit(const Visitor& visitor) const override;

    /// Makes the changes of transactions that failed, in the transaction that has begun.
    Result<void> storeLeftOver();
    /// The transaction has ended.
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
    SqliteConnection::Statement m_insertion; ///< made when it is first needed
    std::vector<Change> m_changes;           ///< that are not committed yet
    std::int64_t m_added = 0;                ///< records more, by the transaction that runs
    bool m_isCountKnown = true;              ///< whether the stored count is right
};

} // namespace vexmoor
