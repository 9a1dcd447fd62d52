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

/// The items that were put into a Bin and neither put back nor deleted since: the way back of each,
/// however long ago it went. They stand in a table of the database; add() and remove() belong to
/// the transaction of the batch. Copies share what they know of volumes. Main thread.
class BinnedItems {
  public:
    /// `patience`: how long it waits for a volume. What lies on one that has not answered by then
    /// counts as in the Bin until it is certain that the volume hangs.
    BinnedItems(const Ledger& ledger, RecordTable& table,
                std::chrono::milliseconds patience = VolumeLooks::kTimeout)
        : m_ledger(ledger), m_table(table), m_volumes(std::make_shared<VolumeLooks>(patience)) {}

    /// Adds those of a batch that can be put back, in the order of disposal. Above kMost items the
    /// oldest are dropped.
    void add(std::int64_t batch, const std::vector<Sacrifice>& items);
    void remove(const std::set<Uuid>& ids);

    /// The whole newest batch that has something left in the Bin, newest item first.
    [[nodiscard]] std::vector<Sacrifice> lastBatch() const;

    /// The newest `count` items that are in the Bin.
    [[nodiscard]] std::vector<Sacrifice> newest(std::size_t count) const;

    /// Passes those that can still be put back to the visitor, newest first, until it returns
    /// false.
    void visit(const std::function<bool(const Sacrifice&)>& visitor) const;

    /// The newest `most` whose name, as bytes, matches, whether or not they are found in the Bin.
    [[nodiscard]] std::vector<Sacrifice>
    matching(const std::function<bool(const std::string& name)>& matches, std::size_t most) const;

    /// The newest `most` in that Bin, which is at the top of a volume, among the newest `records`;
    /// without those of one batch. Newest first, whether or not they are found there.
    [[nodiscard]] std::vector<Sacrifice>
    inVolumeBin(const Path& bin, std::size_t most, std::size_t records,
                std::optional<std::int64_t> withoutBatch = std::nullopt) const;

    /// All that can still be put back, newest first, whether or not it is found in the Bin.
    [[nodiscard]] std::vector<Sacrifice> all() const;

    /// Items as they were named, each once, and why others were not taken.
    struct Named {
        std::vector<Sacrifice> items;
        std::vector<Failure> missing;
    };
    /// By id, by the beginning of one (at least kShortId characters), by the path where the item
    /// was, or by its name. Names are compared as bytes; the text that lists show in place of a
    /// name that is not UTF-8 is understood too. Several items of one path mean the newest; what
    /// means items of several paths is a failure that lists them.
    [[nodiscard]] Named named(const std::vector<std::string>& wanted) const;

    /// What a put-back means: those named; without names the newest `last`; without that, 0, the
    /// whole last batch.
    [[nodiscard]] Named toPutBack(const std::vector<std::string>& wanted, std::size_t last) const;

    /// Those of the items, which may be old copies, that can still be put back as far as is known.
    [[nodiscard]] std::vector<Sacrifice> current(std::vector<Sacrifice> items) const;

    /// Whether one of the items can still be put back and lies in the Bin.
    [[nodiscard]] bool hasAny(const std::vector<Sacrifice>& items) const;

    /// Whether lastBatch() has any.
    [[nodiscard]] bool hasAny() const;

    /// Characters of an id that lists show.
    static constexpr std::size_t kShortId = 8;
    static constexpr std::int64_t kMost = 100'000;

  private:
    using Visitor = std::function<bool(std::int64_t batch, const Sacrifice& item)>;
    enum class Look { take, pass, stop };
    using Filter = std::function<Look(const RecordTable::Record& record)>;
    /// Newest first, those that the filter takes before they are decoded, until one of both says
    /// stop or false.
    void visit(const Filter& filter, const Visitor& visitor) const;

    const Ledger& m_ledger;
    RecordTable& m_table;
    std::shared_ptr<VolumeLooks> m_volumes;
};

/// Whether an item that went to the Bin went to that of the home folder. Looks at nothing.
bool isInHomeBin(const Sacrifice& item, const UserDirectories& directories);

} // namespace vexmoor
