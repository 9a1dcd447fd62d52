#include "BinnedSearch.h"

#include "intake/BinnedItems.h"

#include <algorithm>

namespace vexmoor {

namespace {

bool isPath(const std::string& text) {
    return text.find('/') != std::string::npos;
}

std::string upperCase(std::string text) {
    std::ranges::transform(text, text.begin(),
                           [](char c) { return c >= 'a' && c <= 'z' ? char(c - 'a' + 'A') : c; });
    return text;
}

} // namespace

std::string idBytes(const Uuid& id) {
    return {id.bytes.begin(), id.bytes.end()};
}

std::string originalName(const Sacrifice& item) {
    return lastComponent(*item.original);
}

BinnedSearch::BinnedSearch(const std::vector<std::string>& wanted, BinLook look)
    : m_look(std::move(look)) {
    for (const auto& text : wanted) {
        if (const auto id = Uuid::fromString(text))
            m_ids.insert(idBytes(*id));
        m_names.insert(isPath(text) ? lastComponent(text) : text);
        if (text.size() >= BinnedItems::kShortId)
            m_beginnings.insert(upperCase(text));
    }
}

bool BinnedSearch::concerns(const RecordTable::Record& record) const {
    return m_ids.contains(record.id) || m_names.contains(record.name) ||
           m_names.contains(displayText(record.name)) || hasBeginning(record.id);
}

void BinnedSearch::take(const Sacrifice& item) {
    const auto name = originalName(item);
    m_byId.emplace(item.id.toString(), m_found.size());
    m_byName[name].push_back(m_found.size());
    if (item.name != name)
        m_byName[item.name].push_back(m_found.size());
    m_found.push_back(item);
}

std::vector<Sacrifice> BinnedSearch::meant(const std::string& text) {
    if (const auto id = Uuid::fromString(text))
        return ofPaths(withIds(id->toString()));
    auto items = ofPaths(isPath(text) ? atPath(standardized(text)) : called(text));
    if (items.empty() && text.size() >= BinnedItems::kShortId)
        items = withIds(upperCase(text));
    return items;
}

/// True if one of the texts is a prefix of that id.
bool BinnedSearch::hasBeginning(const std::string& bytes) const {
    if (m_beginnings.empty())
        return false;
    Uuid id;
    std::copy_n(bytes.begin(), std::min(bytes.size(), id.bytes.size()), id.bytes.begin());
    const auto text = id.toString();
    const auto after = m_beginnings.upper_bound(text);
    return after != m_beginnings.begin() && text.starts_with(*std::prev(after));
}

std::vector<Sacrifice> BinnedSearch::withIds(const std::string& beginning) const {
    std::vector<Sacrifice> items;
    for (auto found = m_byId.lower_bound(beginning);
         found != m_byId.end() && found->first.starts_with(beginning); ++found)
        items.push_back(m_found[found->second]);
    return items;
}

std::vector<Sacrifice> BinnedSearch::called(const std::string& name) const {
    std::vector<Sacrifice> items;
    if (const auto found = m_byName.find(name); found != m_byName.end())
        for (const auto index : found->second)
            items.push_back(m_found[index]);
    // An exact match takes precedence over a match of the displayed form.
    if (std::ranges::any_of(items, [&](const auto& item) { return originalName(item) == name; }))
        std::erase_if(items, [&](const auto& item) { return originalName(item) != name; });
    return items;
}

std::vector<Sacrifice> BinnedSearch::atPath(const Path& path) const {
    auto items = called(lastComponent(path));
    std::erase_if(items, [&](const auto& item) { return !(*item.original == path); });
    return items;
}

/// Returns the newest item of each path that is not gone; if all are gone, the newest.
std::vector<Sacrifice> BinnedSearch::ofPaths(std::vector<Sacrifice> items) {
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

} // namespace vexmoor
