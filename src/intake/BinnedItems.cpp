#include "BinnedItems.h"

#include "base/JsonReader.h"
#include "disposal/DisposalError.h"
#include "disposal/RecordJson.h"
#include "disposal/TrashDirectory.h"
#include "intake/VolumeCheck.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <map>

namespace vexmoor {

namespace {

constexpr std::size_t kListedCandidates = 8;

std::string bytesOf(const Uuid& id) {
    return {id.bytes.begin(), id.bytes.end()};
}

std::optional<Sacrifice> itemOf(const RecordTable::Record& record) {
    return recordFromJson(parsedJson(record.content));
}

/// The bytes that the item was called by.
std::string nameOf(const Sacrifice& item) {
    return lastComponent(*item.original);
}

/// Looks for items in their Bins, and waits for no volume that does not answer.
class BinLook {
  public:
    bool isInBin(const Sacrifice& item) {
        return m_volumes.answersFor(*item.trashed) && fileStatus(*item.trashed).ok();
    }
    /// On a volume that is not there it may still be in the Bin.
    bool isGone(const Sacrifice& item) {
        return m_volumes.answersFor(*item.trashed) && !fileStatus(*item.trashed) &&
               !TrashDirectory::isOnAbsentVolume(*item.trashed);
    }

  private:
    VolumeCheck m_volumes;
};

std::string upperCase(std::string text) {
    std::ranges::transform(text, text.begin(),
                           [](char c) { return c >= 'a' && c <= 'z' ? char(c - 'a' + 'A') : c; });
    return text;
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

/// What was named, prepared for going through the records once.
class Search {
  public:
    explicit Search(const std::vector<std::string>& wanted) {
        for (const auto& text : wanted) {
            if (const auto id = Uuid::fromString(text))
                m_ids.insert(bytesOf(*id));
            m_names.insert(isPath(text) ? lastComponent(text) : text);
            if (text.size() >= BinnedItems::kShortId)
                m_beginnings.insert(upperCase(text));
        }
    }

    [[nodiscard]] bool concerns(const RecordTable::Record& record) const {
        return m_ids.contains(record.id) || m_names.contains(record.name) ||
               m_names.contains(displayText(record.name)) || hasBeginning(record.id);
    }

    void take(const Sacrifice& item) {
        m_byId.emplace(item.id.toString(), m_found.size());
        m_byName[nameOf(item)].push_back(m_found.size());
        if (item.name != nameOf(item))
            m_byName[item.name].push_back(m_found.size());
        m_found.push_back(item);
    }

    /// The items that the text can mean, newest first, one for each path.
    [[nodiscard]] std::vector<Sacrifice> meant(const std::string& text) {
        if (const auto id = Uuid::fromString(text))
            return ofPaths(withIds(id->toString()));
        auto items = ofPaths(isPath(text) ? atPath(standardized(text)) : called(text));
        if (items.empty() && text.size() >= BinnedItems::kShortId)
            items = withIds(upperCase(text));
        return items;
    }

  private:
    static bool isPath(const std::string& text) { return text.find('/') != std::string::npos; }

    [[nodiscard]] bool hasBeginning(const std::string& idBytes) const {
        if (m_beginnings.empty())
            return false;
        Uuid id;
        std::copy_n(idBytes.begin(), std::min(idBytes.size(), id.bytes.size()), id.bytes.begin());
        const auto text = id.toString();
        const auto after = m_beginnings.upper_bound(text);
        return after != m_beginnings.begin() && text.starts_with(*std::prev(after));
    }

    [[nodiscard]] std::vector<Sacrifice> withIds(const std::string& beginning) const {
        std::vector<Sacrifice> items;
        for (auto found = m_byId.lower_bound(beginning);
             found != m_byId.end() && found->first.starts_with(beginning); ++found)
            items.push_back(m_found[found->second]);
        return items;
    }

    [[nodiscard]] std::vector<Sacrifice> called(const std::string& name) const {
        std::vector<Sacrifice> items;
        if (const auto found = m_byName.find(name); found != m_byName.end())
            for (const auto index : found->second)
                items.push_back(m_found[index]);
        // The name itself counts before a text that lists show for another one.
        if (std::ranges::any_of(items, [&](const auto& item) { return nameOf(item) == name; }))
            std::erase_if(items, [&](const auto& item) { return nameOf(item) != name; });
        return items;
    }

    [[nodiscard]] std::vector<Sacrifice> atPath(const Path& path) const {
        auto items = called(lastComponent(path));
        std::erase_if(items, [&](const auto& item) { return !(*item.original == path); });
        return items;
    }

    /// Of each path the newest that is not gone; where all are gone, the newest.
    std::vector<Sacrifice> ofPaths(std::vector<Sacrifice> items) {
        if (items.empty())
            return items;
        std::vector<Sacrifice> kept;
        for (const auto& item : items)
            if (std::ranges::none_of(
                    kept, [&](const auto& one) { return *one.original == *item.original; }) &&
                !m_look.isGone(item))
                kept.push_back(item);
        return kept.empty() ? std::vector{std::move(items.front())} : kept;
    }

    BinLook m_look;
    std::set<std::string> m_ids;
    std::set<std::string> m_names;
    std::set<std::string> m_beginnings;
    std::vector<Sacrifice> m_found; ///< newest first
    std::map<std::string, std::size_t> m_byId;
    std::map<std::string, std::vector<std::size_t>> m_byName;
};

} // namespace

void BinnedItems::add(std::int64_t batch, const std::vector<Sacrifice>& items) {
    bool added = false;
    for (const auto& item : items)
        if (item.canRestore()) {
            m_table.append({batch, bytesOf(item.id), nameOf(item), recordText(item)});
            added = true;
        }
    if (added)
        m_table.trim(kMost);
}

void BinnedItems::remove(const std::set<Uuid>& ids) {
    std::set<std::string> keys;
    for (const auto& id : ids)
        keys.insert(bytesOf(id));
    m_table.remove(std::move(keys));
}

/// The ledger knows more where the last batch could not be stored. A place in the Bin is its newest
/// item's, whichever had it before.
void BinnedItems::visit(const Filter& filter, const Visitor& visitor) const {
    std::map<std::string, const Sacrifice*> recent;
    for (const auto& item : m_ledger.recent.get())
        recent[bytesOf(item.id)] = &item;
    std::set<std::string> places;
    // A table that cannot be read has nothing to offer; the items stay in the Bin.
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
    BinLook look;
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
    BinLook look;
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

std::vector<Sacrifice> BinnedItems::all() const {
    std::vector<Sacrifice> items;
    visit([&](const Sacrifice& item) {
        items.push_back(item);
        return true;
    });
    return items;
}

BinnedItems::Named BinnedItems::named(const std::vector<std::string>& wanted) const {
    Search search(wanted);
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
        wanted.emplace(bytesOf(item.id), &item);
    std::map<std::string, Sacrifice> left;
    (void)m_table.visit([&](const RecordTable::Record& record) {
        const auto known = wanted.find(record.id);
        if (known == wanted.end())
            return true;
        if (recordText(*known->second) == record.content) // much cheaper than to understand it
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
        const auto found = left.find(bytesOf(item.id));
        const auto known = recent.find(item.id);
        if (found != left.end() && (known == recent.end() || known->second->canRestore()))
            current.push_back(found->second);
    }
    return current;
}

bool BinnedItems::hasAny(const std::vector<Sacrifice>& items) const {
    BinLook look;
    return std::ranges::any_of(current(items),
                               [&](const Sacrifice& item) { return look.isInBin(item); });
}

} // namespace vexmoor
