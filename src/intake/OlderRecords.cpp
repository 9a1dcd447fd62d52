#include "OlderRecords.h"

#include <algorithm>
#include <map>

namespace vexmoor {

namespace {

constexpr const char* kAdoptedKey = "records.adopted";

/// Returns the items of a closed journal, oldest first.
std::vector<Sacrifice> binnedBy(const OlderJournals& journals, std::int64_t number) {
    std::vector<Sacrifice> items;
    if (const auto batch = journals.read(number))
        for (const auto& entry : batch->entries)
            if (entry.outcome != JournalEntry::Outcome::failed)
                items.push_back(entry.sacrifice);
    return items;
}

} // namespace

bool areOlderRecordsAdopted(const OlderJournals& journals, const UserDefaults& defaults) {
    return defaults.boolean(kAdoptedKey) && journals.closed().empty();
}

Result<void> adoptOlderRecords(OlderJournals& journals, UserDefaults& defaults,
                               const Ledger& ledger, BinnedItems& binnedItems) {
    if (areOlderRecordsAdopted(journals, defaults))
        return {};
    const auto closed = journals.closed();
    std::map<Uuid, Sacrifice> recent;
    for (const auto& item : ledger.recent.get())
        recent.emplace(item.id, item);
    std::set<Uuid> known;
    for (const auto& item : binnedItems.all())
        known.insert(item.id);
    std::vector<std::pair<std::int64_t, std::vector<Sacrifice>>> batches;
    std::set<Uuid> journaled;
    for (const auto number : closed) {
        auto& [batch, items] = batches.emplace_back(number, binnedBy(journals, number));
        for (auto& item : items) {
            journaled.insert(item.id);
            if (const auto found = recent.find(item.id); found != recent.end())
                item = found->second; // has the item's later fate
        }
        std::erase_if(items, [&](const Sacrifice& item) { return known.contains(item.id); });
    }
    std::vector<Sacrifice> older; // one batch each, because their journals are gone
    for (const auto& item : ledger.recent.get())
        if (!journaled.contains(item.id) && !known.contains(item.id))
            older.insert(older.begin(), item);
    auto stored = defaults.transaction([&] {
        std::int64_t number = -static_cast<std::int64_t>(older.size());
        for (const auto& item : older)
            binnedItems.add(number++, {item});
        for (const auto& [batch, items] : batches)
            binnedItems.add(batch, items);
        defaults.assign(kAdoptedKey, true);
    });
    if (!stored)
        return stored;
    for (const auto number : closed)
        journals.removeClosed(number);
    return {};
}

JournalBatch withoutKnown(JournalBatch batch, const Ledger& ledger,
                          const UserDirectories& directories) {
    std::erase_if(batch.entries, [&](const JournalEntry& entry) {
        if (entry.outcome != JournalEntry::Outcome::unknown)
            return true;
        const bool couldWait = batch.mode == DisposeMode::dissolve
                                   ? entry.volume.has_value()
                                   : !isInHomeBin(entry.sacrifice, directories);
        if (!couldWait)
            return true;
        const auto& recent = ledger.recent.get();
        const auto known = std::ranges::find(recent, entry.sacrifice.id, &Sacrifice::id);
        return known != recent.end() && (batch.kind == JournalKind::feed || !known->canRestore());
    });
    return batch;
}

std::vector<Sacrifice> binnedWithoutRecord(const JournalBatch& batch, const JournalBatch& open,
                                           const BinnedItems& binnedItems, Disposer& disposer) {
    std::set<Uuid> known;
    for (const auto& item : binnedItems.all())
        known.insert(item.id);
    for (const auto& entry : open.entries)
        known.insert(entry.sacrifice.id);
    std::vector<Sacrifice> items;
    for (const auto& entry : batch.entries) {
        const auto& item = entry.sacrifice;
        if (batch.kind == JournalKind::feed && item.canRestore() &&
            entry.outcome != JournalEntry::Outcome::failed && !known.contains(item.id) &&
            disposer.check(*item.trashed, item.binRecord()))
            items.push_back(item);
    }
    return items;
}

} // namespace vexmoor
