#include "JsonReader.h"

#include <nlohmann/json.hpp>

#include <limits>

namespace vexmoor {

using Json = nlohmann::ordered_json;

namespace {

bool fitsInteger(const Json& json) {
    return json.is_number_integer() &&
           !(json.is_number_unsigned() &&
             json.get<std::uint64_t>() > std::uint64_t{std::numeric_limits<std::int64_t>::max()});
}

} // namespace

JsonReader::JsonReader(const Json& json) : m_json(json), m_ok(json.is_object()) {}

bool JsonReader::check(bool condition) {
    m_ok = m_ok && condition;
    return condition;
}

const Json* JsonReader::find(const char* key, Key presence) {
    if (!m_json.is_object())
        return nullptr;
    const auto found = m_json.find(key);
    const bool present = found != m_json.end() && !found->is_null();
    check(present || presence == Key::optional);
    return present ? &*found : nullptr;
}

std::optional<std::string> JsonReader::string(const char* key, Key presence) {
    const Json* const found = find(key, presence);
    return found != nullptr && check(found->is_string()) ? std::optional(found->get<std::string>())
                                                         : std::nullopt;
}

std::optional<std::vector<std::string>> JsonReader::strings(const char* key) {
    const Json* const found = find(key, Key::required);
    if (found == nullptr || !check(found->is_array()))
        return std::nullopt;
    std::vector<std::string> result;
    result.reserve(found->size());
    for (const auto& element : *found) {
        if (!check(element.is_string()))
            return std::nullopt;
        result.push_back(element.get<std::string>());
    }
    return result;
}

std::optional<std::int64_t> JsonReader::integer(const char* key) {
    const Json* const found = find(key, Key::required);
    return found != nullptr && check(fitsInteger(*found))
               ? std::optional(found->get<std::int64_t>())
               : std::nullopt;
}

std::optional<bool> JsonReader::boolean(const char* key, Key presence) {
    const Json* const found = find(key, presence);
    return found != nullptr && check(found->is_boolean()) ? std::optional(found->get<bool>())
                                                          : std::nullopt;
}

std::optional<Date> JsonReader::date(const char* key, Key presence) {
    const Json* const found = find(key, presence);
    return found != nullptr && check(found->is_number()) ? std::optional(Date{found->get<double>()})
                                                         : std::nullopt;
}

Json parsedJson(std::string_view text) {
    return Json::parse(text, nullptr, false);
}

std::string jsonText(const Json& json) {
    return json.dump(-1, ' ', false, Json::error_handler_t::replace);
}

} // namespace vexmoor
