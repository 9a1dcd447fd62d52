#pragma once

#include "base/Result.h"

#include <cstdint>
#include <functional>
#include <set>
#include <string>

namespace vexmoor {

/// A table of records beside the user defaults, in the order in which they were appended (port).
/// Changes belong to the transaction of the user defaults that runs; outside of one each is a
/// transaction. What could not be stored is stored with the next transaction. One thread.
class RecordTable {
  public:
    struct Record {
        std::int64_t group = 0; ///< the same for those that were appended together
        std::string id;         ///< unique
        std::string name;       ///< any bytes
        std::string content;
    };
    /// Returns whether it wants the next one too. The reference is valid during the call.
    using Visitor = std::function<bool(const Record&)>;

    virtual ~RecordTable() = default;

    virtual void append(Record record) = 0;

    /// Ids that are not there are ignored. Cheap for the newest records.
    virtual void remove(std::set<std::string> ids) = 0;

    /// Removes the oldest records above that number.
    virtual void trim(std::int64_t most) = 0;

    /// Passes the records to the visitor, newest first. Not during a transaction.
    virtual Result<void> visit(const Visitor& visitor) const = 0;
};

} // namespace vexmoor
