#include "BinnedItems.h"

#include "platform/FileManager.h"

#include <algorithm>
#include <set>

namespace vexmoor {

namespace {

bool isCalled(const Sacrifice& item, const std::string& idOrName) {
    return item.id == Uuid::fromString(idOrName) || item.name == displayText(idOrName);
}

bool isStillThere(const JournalEntry& entry) {
    const auto status = fileStatus(*entry.sacrifice.trashed);
    return status && status->identity.inode == entry.inode;
}

} // namespace

std::vector<Sacrifice> BinnedItems::recent() const {
    auto items = m_ledger.recent.get();
    std::erase_if(items, [](const Sacrifice& item) { return !item.canRestore(); });
    return items;
}

/// Newest first.
std::vector<Sacrifice> BinnedItems::ofJournal(std::int64_t number) const {
    const auto batch = m_journal.read(number);
    std::vector<Sacrifice> items;
    if (!batch)
        return items; // an unreadable journal has nothing to offer; the items stay in the Bin
    std::map<Uuid, const Sacrifice*> known;
    for (const auto& item : m_ledger.recent.get())
        known[item.id] = &item;
    for (auto entry = batch->entries.rbegin(); entry != batch->entries.rend(); ++entry) {
        const auto found = known.find(entry->sacrifice.id);
        const Sacrifice& item = found == known.end() ? entry->sacrifice : *found->second;
        if (entry->outcome != JournalEntry::Outcome::failed && item.canRestore() &&
            isStillThere(*entry))
            items.push_back(item);
    }
    return items;
}

std::vector<Sacrifice> BinnedItems::lastBatch() const {
    for (const auto number : m_journal.closed())
        if (auto items = ofJournal(number); !items.empty())
            return items;
    return recent(); // records that are older than all journals
}

std::vector<Sacrifice> BinnedItems::newest(std::size_t count) const {
    auto items = recent();
    std::set<Uuid> ids;
    for (const auto& item : items)
        ids.insert(item.id);
    for (const auto number : m_journal.closed()) {
        if (items.size() >= count)
            break;
        for (auto& item : ofJournal(number))
            if (ids.insert(item.id).second)
                items.push_back(std::move(item));
    }
    items.resize(std::min(items.size(), count));
    return items;
}

std::optional<Sacrifice> BinnedItems::find(const std::string& idOrName) const {
    for (const auto& item : recent())
        if (isCalled(item, idOrName))
            return item;
    for (const auto number : m_journal.closed())
        for (auto& item : ofJournal(number))
            if (isCalled(item, idOrName))
                return std::move(item);
    return std::nullopt;
}

} // namespace vexmoor
