#pragma once

#include "base/RecordTable.h"
#include "intake/BinLook.h"

#include <map>
#include <set>
#include <string>
#include <vector>

namespace vexmoor {

/// Returns the id in the table's format.
std::string idBytes(const Uuid& id);

/// Returns the bytes of the binned item's original name.
std::string originalName(const Sacrifice& item);

/// Finds the items that texts match (see BinnedItems::named), in one pass over the records: take()
/// must be called for all records concerned, newest first, before meant(). Not thread-safe.
class BinnedSearch {
  public:
    BinnedSearch(const std::vector<std::string>& wanted, BinLook look);

    [[nodiscard]] bool concerns(const RecordTable::Record& record) const;
    void take(const Sacrifice& item);

    /// Returns the items that the text matches, newest first, one per path.
    [[nodiscard]] std::vector<Sacrifice> meant(const std::string& text);

  private:
    [[nodiscard]] bool hasBeginning(const std::string& bytes) const;
    [[nodiscard]] std::vector<Sacrifice> withIds(const std::string& beginning) const;
    [[nodiscard]] std::vector<Sacrifice> called(const std::string& name) const;
    [[nodiscard]] std::vector<Sacrifice> atPath(const Path& path) const;
    std::vector<Sacrifice> ofPaths(std::vector<Sacrifice> items);

    BinLook m_look;
    std::set<std::string> m_ids;
    std::set<std::string> m_names;
    std::set<std::string> m_beginnings;
    std::vector<Sacrifice> m_found; ///< newest first
    std::map<std::string, std::size_t> m_byId;
    std::map<std::string, std::vector<std::size_t>> m_byName;
};

} // namespace vexmoor
