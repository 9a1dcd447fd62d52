#include "InMemoryDefaults.h"

namespace vexmoor::test {

namespace {

void apply(InMemoryDefaults::Values& values, std::string_view key,
           const std::optional<UserDefaults::Value>& value) {
    if (value)
        values.insert_or_assign(std::string(key), *value);
    else
        values.erase(std::string(key));
}

} // namespace

std::optional<UserDefaults::Value> InMemoryDefaults::value(std::string_view key) const {
    const auto found = m_values.find(key);
    return found == m_values.end() ? std::nullopt : std::optional(found->second);
}

void InMemoryDefaults::assign(std::string_view key, std::optional<Value> value) {
    if (!m_inTransaction) {
        if (auto stored = transaction([&] { assign(key, value); }, Durability::onDisk); !stored)
            m_failures.push_back(std::move(stored).error());
        return;
    }
    apply(m_values, key, value);
    m_pending.emplace_back(key, std::move(value));
}

Result<void> InMemoryDefaults::transaction(const std::function<void()>& body, Durability) {
    if (m_inTransaction) {
        body();
        return {};
    }
    m_inTransaction = true;
    body();
    m_inTransaction = false;
    if (m_error)
        return *m_error; // pending changes are stored with the next transaction
    for (const auto& [key, value] : std::exchange(m_pending, {}))
        apply(m_stored, key, value);
    ++m_commits;
    return {};
}

} // namespace vexmoor::test
