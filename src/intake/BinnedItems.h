#pragma once

#include "base/RecordTable.h"
#include "disposal/Ledger.h"
#include "intake/Ports.h"
#include "intake/VolumeCheck.h"
#include "platform/UserDirectories.h"

#include <functional>
#include <set>
#include <string>
#include <vector>

namespace vexmoor {

/// The items that were put into a Bin and neither put back nor deleted since, at any age. Stored in
/// a table of the database; add() and remove() must be called in the batch's transaction. Copies
/// share their knowledge of volumes. Main thread.
class BinnedItems {
  public:
    /// `patience` is the timeout for a volume. Items on a volume that has not answered by then
    /// count as in the Bin until VolumeLooks::kTimeout is over.
    BinnedItems(const Ledger& ledger, RecordTable& table,
                std::chrono::milliseconds patience = VolumeLooks::kTimeout)
        : m_ledger(ledger), m_table(table), m_volumes(std::make_shared<VolumeLooks>(patience)) {}

    /// Adds the items of a batch that can be put back, in the order of disposal. Drops the oldest
    /// items above kMost.
    void add(std::int64_t batch, const std::vector<Sacrifice>& items);
    void remove(const std::set<Uuid>& ids);

    /// Returns the newest batch that has items left in the Bin, newest item first.
    [[nodiscard]] std::vector<Sacrifice> lastBatch() const;

    /// Returns the newest `count` items that are in the Bin.
    [[nodiscard]] std::vector<Sacrifice> newest(std::size_t count) const;

    /// Passes the items that can be put back to the visitor, newest first, until it returns false.
    void visit(const std::function<bool(const Sacrifice&)>& visitor) const;

    /// Returns the newest `most` items whose name, as bytes, matches. Does not check the Bin.
    [[nodiscard]] std::vector<Sacrifice>
    matching(const std::function<bool(const std::string& name)>& matches, std::size_t most) const;

    /// Returns the newest `most` items in the given Bin of a volume, newest first, out of the
    /// newest `records`; omits those of one batch. Does not check the Bin.
    [[nodiscard]] std::vector<Sacrifice>
    inVolumeBin(const Path& bin, std::size_t most, std::size_t records,
                std::optional<std::int64_t> withoutBatch = std::nullopt) const;

    /// Returns all items that can be put back, newest first. Does not check the Bin.
    [[nodiscard]] std::vector<Sacrifice> all() const;

    /// The named items without duplicates, and the failures of the other names.
    struct Named {
        std::vector<Sacrifice> items;
        std::vector<Failure> missing;
    };
    /// Finds items by id, by a prefix of one (at least kShortId characters), by original path, or
    /// by name. Compares names as bytes; also accepts the displayed form of a name that is not
    /// UTF-8. Among items of one path takes the newest; a name that matches items of several paths
    /// is a failure that lists them.
    [[nodiscard]] Named named(const std::vector<std::string>& wanted) const;

    /// Returns the items to put back: the named ones; without names the newest `last`; if `last` is
    /// 0, the last batch.
    [[nodiscard]] Named toPutBack(const std::vector<std::string>& wanted, std::size_t last) const;

    /// Returns those of the given items, updated, that can still be put back according to the
    /// records.
    [[nodiscard]] std::vector<Sacrifice> current(std::vector<Sacrifice> items) const;

    /// True if one of the items can still be put back and is in the Bin.
    [[nodiscard]] bool hasAny(const std::vector<Sacrifice>& items) const;

    /// True if lastBatch() is not empty.
    [[nodiscard]] bool hasAny() const;

    /// The length of displayed ids.
    static constexpr std::size_t kShortId = 8;
    static constexpr std::int64_t kMost = 100'000;

  private:
    using Visitor = std::function<bool(std::int64_t batch, const Sacrifice& item)>;
    enum class Look { take, pass, stop };
    using Filter = std::function<Look(const RecordTable::Record& record)>;
    /// Visits the records newest first. Decodes only those that the filter takes. Ends when the
    /// filter returns stop or the visitor returns false.
    void visit(const Filter& filter, const Visitor& visitor) const;

    const Ledger& m_ledger;
    RecordTable& m_table;
    std::shared_ptr<VolumeLooks> m_volumes;
};

/// True if a binned item is in the home Bin. Does not access the file system.
bool isInHomeBin(const Sacrifice& item, const UserDirectories& directories);

} // namespace vexmoor
