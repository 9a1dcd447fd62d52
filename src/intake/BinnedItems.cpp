#include "BinnedItems.h"

#include "base/JsonReader.h"
#include "disposal/DisposalError.h"
#include "disposal/RecordJson.h"
#include "intake/BinLook.h"
#include "intake/BinnedSearch.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <map>

namespace vexmoor {

namespace {

constexpr std::size_t kListedCandidates = 8;

std::optional<Sacrifice> itemOf(const RecordTable::Record& record) {
    return recordFromJson(parsedJson(record.content));
}

std::string shortId(const Sacrifice& item) {
    return item.id.toString().substr(0, BinnedItems::kShortId);
}

Failure ambiguous(const std::string& wanted, const std::vector<Sacrifice>& candidates) {
    std::string list;
    for (std::size_t i = 0; i < std::min(candidates.size(), kListedCandidates); ++i)
        list += (i > 0 ? ", " : "") + shortId(candidates[i]) + " (" +
                displayText(candidates[i].original->native()) + ")";
    Error error = disposalError(DisposalError::ambiguous, wanted, list);
    error.count =
        std::max<std::int64_t>(0, std::ssize(candidates) - std::int64_t{kListedCandidates});
    return {displayText(wanted), std::move(error)};
}

} // namespace

void BinnedItems::add(std::int64_t batch, const std::vector<Sacrifice>& items) {
    bool added = false;
    for (const auto& item : items)
        if (item.canRestore()) {
            m_table.append({batch, idBytes(item.id), originalName(item), recordText(item)});
            added = true;
        }
    if (added)
        m_table.trim(kMost);
}

void BinnedItems::remove(const std::set<Uuid>& ids) {
    std::set<std::string> keys;
    for (const auto& id : ids)
        keys.insert(idBytes(id));
    m_table.remove(std::move(keys));
}

/// Prefers the ledger's records, which are newer if the last batch could not be stored. If several
/// records have the same path in the Bin, only the newest counts.
void BinnedItems::visit(const Filter& filter, const Visitor& visitor) const {
    std::map<std::string, const Sacrifice*> recent;
    for (const auto& item : m_ledger.recent.get())
        recent[idBytes(item.id)] = &item;
    std::set<std::string> places;
    // If the table cannot be read, nothing is offered; the items stay in the Bin.
    (void)m_table.visit([&](const RecordTable::Record& record) {
        if (const auto look = filter(record); look != Look::take)
            return look == Look::pass;
        const auto known = recent.find(record.id);
        auto item = itemOf(record);
        if (item && known != recent.end()) {
            const auto facts = item->facts;
            item = *known->second;
            item->facts = facts;
        }
        if (!item || !item->canRestore() || !places.insert(item->trashed->native()).second)
            return true;
        return visitor(record.group, *item);
    });
}

std::vector<Sacrifice> BinnedItems::lastBatch() const {
    BinLook look(m_volumes);
    std::vector<Sacrifice> items;
    std::int64_t number = 0;
    visit(
        [&](const auto& record) {
            return items.empty() || record.group == number ? Look::take : Look::stop;
        },
        [&](std::int64_t batch, const Sacrifice& item) {
            if (!look.isInBin(item))
                return true;
            number = batch;
            items.push_back(item);
            return true;
        });
    return items;
}

std::vector<Sacrifice> BinnedItems::newest(std::size_t count) const {
    BinLook look(m_volumes);
    std::vector<Sacrifice> items;
    visit([](const auto&) { return Look::take; },
          [&](std::int64_t, const Sacrifice& item) {
              if (look.isInBin(item))
                  items.push_back(item);
              return items.size() < count;
          });
    return items;
}

void BinnedItems::visit(const std::function<bool(const Sacrifice&)>& visitor) const {
    visit([](const auto&) { return Look::take; },
          [&](std::int64_t, const Sacrifice& item) { return visitor(item); });
}

std::vector<Sacrifice>
BinnedItems::matching(const std::function<bool(const std::string& name)>& matches,
                      std::size_t most) const {
    std::vector<Sacrifice> items;
    visit(
        [&](const auto& record) {
            return items.size() >= most   ? Look::stop
                   : matches(record.name) ? Look::take
                                          : Look::pass;
        },
        [&](std::int64_t, const Sacrifice& item) {
            items.push_back(item);
            return true;
        });
    return items;
}

std::vector<Sacrifice> BinnedItems::inVolumeBin(const Path& bin, std::size_t most,
                                                std::size_t records,
                                                std::optional<std::int64_t> withoutBatch) const {
    std::vector<Sacrifice> items;
    std::size_t looks = 0;
    visit(
        [&](const auto& record) {
            if (record.group == withoutBatch)
                return Look::pass;
            if (items.size() >= most || ++looks > records)
                return Look::stop;
            // Filters by text first, because parsing is much slower and few records match.
            return record.content.find("/.Trash") == std::string::npos ? Look::pass : Look::take;
        },
        [&](std::int64_t, const Sacrifice& item) {
            if (Path(*item.trashed).parent_path().parent_path() == bin)
                items.push_back(item);
            return true;
        });
    return items;
}

std::vector<Sacrifice> BinnedItems::all() const {
    std::vector<Sacrifice> items;
    visit([&](const Sacrifice& item) {
        items.push_back(item);
        return true;
    });
    return items;
}

BinnedItems::Named BinnedItems::named(const std::vector<std::string>& wanted) const {
    BinnedSearch search(wanted, BinLook(m_volumes));
    visit([&](const auto& record) { return search.concerns(record) ? Look::take : Look::pass; },
          [&](std::int64_t, const Sacrifice& item) {
              search.take(item);
              return true;
          });
    Named result;
    std::set<Uuid> taken;
    for (const auto& text : wanted) {
        auto items = search.meant(text);
        if (items.size() > 1)
            result.missing.push_back(ambiguous(text, items));
        else if (items.empty())
            result.missing.push_back(
                {displayText(text), disposalError(DisposalError::goneFromBin, text)});
        else if (taken.insert(items.front().id).second)
            result.items.push_back(std::move(items.front()));
    }
    return result;
}

BinnedItems::Named BinnedItems::toPutBack(const std::vector<std::string>& wanted,
                                          std::size_t last) const {
    if (!wanted.empty())
        return named(wanted);
    return {last > 0 ? newest(last) : lastBatch(), {}};
}

std::vector<Sacrifice> BinnedItems::current(std::vector<Sacrifice> items) const {
    std::map<std::string, const Sacrifice*> wanted;
    for (const auto& item : items)
        wanted.emplace(idBytes(item.id), &item);
    std::map<std::string, Sacrifice> left;
    (void)m_table.visit([&](const RecordTable::Record& record) {
        const auto known = wanted.find(record.id);
        if (known == wanted.end())
            return true;
        if (recordText(*known->second) == record.content) // much faster than parsing
            left.emplace(record.id, *known->second);
        else if (auto item = itemOf(record))
            left.emplace(record.id, *std::move(item));
        return left.size() < wanted.size();
    });
    std::map<Uuid, const Sacrifice*> recent;
    for (const auto& item : m_ledger.recent.get())
        recent[item.id] = &item;
    std::vector<Sacrifice> current;
    for (const auto& item : items) {
        const auto found = left.find(idBytes(item.id));
        const auto known = recent.find(item.id);
        if (found != left.end() && (known == recent.end() || known->second->canRestore()))
            current.push_back(found->second);
    }
    return current;
}

bool BinnedItems::hasAny() const {
    return !newest(1).empty();
}

bool BinnedItems::hasAny(const std::vector<Sacrifice>& items) const {
    BinLook look(m_volumes);
    return std::ranges::any_of(current(items),
                               [&](const Sacrifice& item) { return look.isInBin(item); });
}

bool isInHomeBin(const Sacrifice& item, const UserDirectories& directories) {
    return Path(*item.trashed).parent_path() == directories.dataHome / "Trash/files";
}

} // namespace vexmoor
