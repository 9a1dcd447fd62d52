#pragma once

#include "base/UserDefaults.h"

#include <map>
#include <vector>

namespace vexmoor::test {

/// UserDefaults in memory that exposes committed values and the number of commits, and can simulate
/// failures.
class InMemoryDefaults : public UserDefaults {
  public:
    using Values = std::map<std::string, Value, std::less<>>;

    InMemoryDefaults() = default;
    explicit InMemoryDefaults(Values values) : m_values(std::move(values)), m_stored(m_values) {}

    [[nodiscard]] std::optional<Value> value(std::string_view key) const override;
    void assign(std::string_view key, std::optional<Value> value) override;
    Result<void> transaction(const std::function<void()>& body,
                             Durability durability = Durability::onDisk) override;
    Result<void> makeDurable() override { return {}; }

    /// Makes storing fail with this error; nullopt makes it work again.
    void failWith(std::optional<Error> error) { m_error = std::move(error); }

    [[nodiscard]] const Values& stored() const { return m_stored; }
    [[nodiscard]] int commits() const { return m_commits; }

    /// Returns the errors passed to the failure handler.
    [[nodiscard]] const std::vector<Error>& failures() const { return m_failures; }

  private:
    Values m_values;
    Values m_stored;
    std::vector<std::pair<std::string, std::optional<Value>>> m_pending; ///< not stored yet
    std::optional<Error> m_error;
    std::vector<Error> m_failures;
    int m_commits = 0;
    bool m_inTransaction = false;
};

} // namespace vexmoor::test
