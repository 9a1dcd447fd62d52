#pragma once

#include "base/Date.h"

#include <nlohmann/json_fwd.hpp>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vexmoor {

/// Reads the keys of one JSON object and records whether every required key was present and every
/// value had the right type. An optional key may be missing or null. Keeps a reference to the
/// object.
class JsonReader {
  public:
    enum class Key { required, optional };

    explicit JsonReader(const nlohmann::ordered_json& json);

    /// True if no key was missing or had the wrong type so far.
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

/// Parses the text. Returns a discarded value if it is not JSON.
nlohmann::ordered_json parsedJson(std::string_view text);

/// Serializes the document without white space. Replaces bytes that are not UTF-8 by U+FFFD, so
/// that one bad string does not lose the document.
std::string jsonText(const nlohmann::ordered_json& json);

} // namespace vexmoor
