#include "RecordJson.h"

#include <nlohmann/json.hpp>

namespace vexmoor {

using Json = nlohmann::ordered_json;

namespace {

Json dateJson(Date date) {
    return date.secondsSinceReference;
}

/// Reads the keys of one object and remembers whether all had their types.
class Reader {
  public:
    explicit Reader(const Json& json) : m_json(json), m_ok(json.is_object()) {}

    [[nodiscard]] bool ok() const { return m_ok; }

    std::optional<std::string> string(const char* key, bool required) {
        const Json* const found = find(key, required);
        return found != nullptr && check(found->is_string())
                   ? std::optional(found->get<std::string>())
                   : std::nullopt;
    }

    std::optional<Path> path(const char* key) {
        const auto text = string(key, false);
        return text ? std::optional(pathFromJsonText(*text)) : std::nullopt;
    }

    std::optional<Date> date(const char* key, bool required) {
        const Json* const found = find(key, required);
        return found != nullptr && check(found->is_number())
                   ? std::optional(Date{found->get<double>()})
                   : std::nullopt;
    }

    std::optional<bool> boolean(const char* key) {
        const Json* const found = find(key, false);
        return found != nullptr && check(found->is_boolean()) ? std::optional(found->get<bool>())
                                                              : std::nullopt;
    }

    std::optional<std::int64_t> integer(const char* key) {
        const Json* const found = find(key, true);
        return found != nullptr && check(found->is_number_integer())
                   ? std::optional(found->get<std::int64_t>())
                   : std::nullopt;
    }

    bool check(bool condition) {
        m_ok = m_ok && condition;
        return condition;
    }

  private:
    const Json* find(const char* key, bool required) {
        if (!m_json.is_object())
            return nullptr;
        const auto found = m_json.find(key);
        const bool present = found != m_json.end() && !found->is_null();
        check(present || !required);
        return present ? &*found : nullptr;
    }

    const Json& m_json;
    bool m_ok;
};

Json parsed(const std::string& text) {
    return Json::parse(text, nullptr, false);
}

} // namespace

Json toJson(const Sacrifice& sacrifice) {
    Json json = {{"id", sacrifice.id.toString()},
                 {"name", sacrifice.name},
                 {"bytes", sacrifice.bytes},
                 {"mode", toRawValue(sacrifice.mode)},
                 {"date", dateJson(sacrifice.date)}};
    if (sacrifice.original)
        json["original"] = pathToJsonText(*sacrifice.original);
    if (sacrifice.trashed)
        json["trashed"] = pathToJsonText(*sacrifice.trashed);
    if (sacrifice.restored)
        json["restored"] = dateJson(*sacrifice.restored);
    if (sacrifice.lost)
        json["lost"] = *sacrifice.lost;
    if (sacrifice.deleted)
        json["deleted"] = dateJson(*sacrifice.deleted);
    return json;
}

std::optional<Sacrifice> sacrificeFromJson(const Json& json) {
    Reader reader(json);
    Sacrifice sacrifice;
    const auto id = Uuid::fromString(reader.string("id", true).value_or(""));
    const auto mode = disposeModeFromRawValue(reader.string("mode", true).value_or(""));
    sacrifice.name = reader.string("name", true).value_or("");
    sacrifice.bytes = reader.integer("bytes").value_or(0);
    sacrifice.date = reader.date("date", true).value_or(Date{});
    sacrifice.original = reader.path("original");
    sacrifice.trashed = reader.path("trashed");
    sacrifice.restored = reader.date("restored", false);
    sacrifice.lost = reader.boolean("lost");
    sacrifice.deleted = reader.date("deleted", false);
    if (!reader.ok() || !id || !mode)
        return std::nullopt;
    sacrifice.id = *id;
    sacrifice.mode = *mode;
    return sacrifice;
}

std::string encode(const std::vector<Sacrifice>& sacrifices) {
    Json array = Json::array();
    for (const auto& sacrifice : sacrifices)
        array.push_back(toJson(sacrifice));
    return array.dump();
}

std::optional<std::vector<Sacrifice>> decodeSacrifices(const std::string& text) {
    const Json array = parsed(text);
    if (!array.is_array())
        return std::nullopt;
    std::vector<Sacrifice> result;
    for (const auto& element : array) {
        auto sacrifice = sacrificeFromJson(element);
        if (!sacrifice)
            return std::nullopt;
        result.push_back(*std::move(sacrifice));
    }
    return result;
}

std::string encode(const std::map<Date, DayTally>& days) {
    Json array = Json::array();
    for (const auto& [day, tally] : days) {
        array.push_back(dateJson(day));
        array.push_back({{"count", tally.count}, {"bytes", tally.bytes}});
    }
    return array.dump();
}

std::optional<std::map<Date, DayTally>> decodeDays(const std::string& text) {
    const Json array = parsed(text);
    if (!array.is_array() || array.size() % 2 != 0)
        return std::nullopt;
    std::map<Date, DayTally> days;
    for (std::size_t i = 0; i < array.size(); i += 2) {
        Reader reader(array[i + 1]);
        const auto count = reader.integer("count");
        const auto bytes = reader.integer("bytes");
        if (!array[i].is_number() || !count || !bytes)
            return std::nullopt;
        days[Date{array[i].get<double>()}] = {*count, *bytes};
    }
    return days;
}

} // namespace vexmoor
