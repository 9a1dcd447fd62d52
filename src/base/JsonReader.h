#pragma once

#include "base/Date.h"

#include <nlohmann/json_fwd.hpp>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vexmoor {

/// Reads the keys of one JSON object, which it does not copy, and remembers whether all that are
/// required were there and all had their types. An optional key may be missing or null.
class JsonReader {
  public:
    enum class Key { required, optional };

    explicit JsonReader(const nlohmann::ordered_json& json);

    /// Whether nothing was wrong so far.
    [[nodiscard]] bool ok() const { return m_ok; }

    std::optional<std::string> string(const char* key, Key presence = Key::required);
    std::optional<std::vector<std::string>> strings(const char* key);
    std::optional<std::int64_t> integer(const char* key);
    std::optional<bool> boolean(const char* key, Key presence = Key::required);
    std::optional<Date> date(const char* key, Key presence = Key::required);

  private:
    const nlohmann::ordered_json* find(const char* key, Key presence);
    bool check(bool condition);

    const nlohmann::ordered_json& m_json;
    bool m_ok;
};

/// The JSON in the text; a discarded value where there is none.
nlohmann::ordered_json parsedJson(std::string_view text);

/// The document without white space. Bytes that are not UTF-8 become U+FFFD: one bad string must
/// not cost the rest.
std::string jsonText(const nlohmann::ordered_json& json);

} // namespace vexmoor
