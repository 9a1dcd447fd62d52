#include "BinnedItems.h"

#include "disposal/DisposalError.h"
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

/// A place in the Bin is its newest item's, whoever had it before.
void BinnedItems::visit(const std::function<bool(const Sacrifice&)>& visitor) const {
    std::set<Path> places;
    for (const auto& item : recent())
        if (places.insert(*item.trashed).second && !visitor(item))
            return;
    for (const auto number : m_journal.closed())
        for (const auto& item : ofJournal(number))
            if (places.insert(*item.trashed).second && !visitor(item))
                return;
}

std::vector<Sacrifice> BinnedItems::newest(std::size_t count) const {
    std::vector<Sacrifice> items;
    visit([&](const Sacrifice& item) {
        items.push_back(item);
        return items.size() < count;
    });
    return items;
}

std::optional<Sacrifice> BinnedItems::find(const std::string& idOrName) const {
    std::optional<Sacrifice> found;
    visit([&](const Sacrifice& item) {
        if (isCalled(item, idOrName))
            found = item;
        return !found;
    });
    return found ? found : findByBeginning(idOrName);
}

BinnedItems::Named BinnedItems::named(const std::vector<std::string>& idsOrNames) const {
    Named result;
    for (const auto& wanted : idsOrNames) {
        if (auto item = find(wanted)) {
            if (std::ranges::count(result.items, item->id, &Sacrifice::id) == 0)
                result.items.push_back(*std::move(item));
        } else {
            result.missing.push_back(
                {displayText(wanted), disposalError(DisposalError::goneFromBin, wanted)});
        }
    }
    return result;
}

BinnedItems::Named BinnedItems::toPutBack(const std::vector<std::string>& idsOrNames,
                                          std::size_t last) const {
    if (!idsOrNames.empty())
        return named(idsOrNames);
    return {last > 0 ? newest(last) : lastBatch(), {}};
}

std::optional<Sacrifice> BinnedItems::findByBeginning(const std::string& id) const {
    if (id.size() < kShortId)
        return std::nullopt;
    std::string wanted = id;
    std::ranges::transform(wanted, wanted.begin(),
                           [](char c) { return c >= 'a' && c <= 'f' ? char(c - 'a' + 'A') : c; });
    std::vector<Sacrifice> found;
    visit([&](const Sacrifice& item) {
        if (item.id.toString().starts_with(wanted))
            found.push_back(item);
        return found.size() < 2;
    });
    return found.size() == 1 ? std::optional(found.front()) : std::nullopt;
}

} // namespace vexmoor
