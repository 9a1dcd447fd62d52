#pragma once

#include "disposal/Journal.h"
#include "disposal/Ledger.h"
#include "intake/Ports.h"

#include <functional>
#include <string>
#include <vector>

namespace vexmoor {

/// Finds items that can still be put back or deleted: in the ledger's recent records and, for what
/// has left these, in the journals of the newest batches.
class BinnedItems {
  public:
    BinnedItems(const Ledger& ledger, const Journal& journal)
        : m_ledger(ledger), m_journal(journal) {}

    /// The whole newest batch that has something left in the Bin.
    [[nodiscard]] std::vector<Sacrifice> lastBatch() const;

    /// The newest `count` items.
    [[nodiscard]] std::vector<Sacrifice> newest(std::size_t count) const;

    /// The newest item of that id or name; else the one whose id alone begins so, with at least
    /// kShortId characters.
    [[nodiscard]] std::optional<Sacrifice> find(const std::string& idOrName) const;

    /// Items as they were named, each once, and what was not found.
    struct Named {
        std::vector<Sacrifice> items;
        std::vector<Failure> missing;
    };
    [[nodiscard]] Named named(const std::vector<std::string>& idsOrNames) const;

    /// What a put-back means: those named; without names the newest `last`; without that, 0, the
    /// whole last batch.
    [[nodiscard]] Named toPutBack(const std::vector<std::string>& idsOrNames,
                                  std::size_t last) const;

    /// Characters of an id that lists show.
    static constexpr std::size_t kShortId = 8;

  private:
    [[nodiscard]] std::optional<Sacrifice> findByBeginning(const std::string& id) const;
    [[nodiscard]] std::vector<Sacrifice> ofJournal(std::int64_t number) const;
    [[nodiscard]] std::vector<Sacrifice> recent() const;
    /// Newest first, until the visitor says no.
    void visit(const std::function<bool(const Sacrifice&)>& visitor) const;

    const Ledger& m_ledger;
    const Journal& m_journal;
};

} // namespace vexmoor
