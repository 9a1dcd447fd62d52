#pragma once

#include "base/Result.h"

#include <cstdint>
#include <functional>
#include <set>
#include <string>

namespace vexmoor {

/// A table of records beside the user defaults, in the order of insertion (port). Changes belong to
/// the current transaction of the user defaults; outside of one, each change is its own
/// transaction. Changes that could not be stored are stored with the next transaction. Not
/// thread-safe.
class RecordTable {
  public:
    struct Record {
        std::int64_t group = 0; ///< shared by records that were appended together
        std::string id;         ///< unique
        std::string name;       ///< any bytes
        std::string content;
    };
    /// Returns true to receive the next record. The reference is valid during the call only.
    using Visitor = std::function<bool(const Record&)>;

    virtual ~RecordTable() = default;

    virtual void append(Record record) = 0;

    /// Removes records; ignores unknown ids. Fast for the newest records.
    virtual void remove(std::set<std::string> ids) = 0;

    /// Removes the oldest records so that at most `most` remain.
    virtual void trim(std::int64_t most) = 0;

    /// Visits the records, newest first. Must not be called during a transaction.
    virtual Result<void> visit(const Visitor& visitor) const = 0;
};

} // namespace vexmoor
