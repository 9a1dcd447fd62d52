#include "RecordJson.h"

#include "base/JsonReader.h"

#include <nlohmann/json.hpp>

namespace vexmoor {

using Json = nlohmann::ordered_json;

namespace {

Json dateJson(Date date) {
    return date.secondsSinceReference;
}

std::optional<Path> readPath(JsonReader& reader, const char* key) {
    const auto text = reader.string(key, JsonReader::Key::optional);
    return text ? std::optional(pathFromJsonText(*text)) : std::nullopt;
}

} // namespace

Json toJson(const Sacrifice& sacrifice) {
    Json json = {{"id", sacrifice.id.toString()},
                 {"name", sacrifice.name},
                 {"bytes", sacrifice.bytes},
                 {"mode", toRawValue(sacrifice.mode)},
                 {"date", dateJson(sacrifice.date)}};
    if (sacrifice.original)
        json["original"] = pathToJsonText(sacrifice.original->native());
    if (sacrifice.trashed)
        json["trashed"] = pathToJsonText(sacrifice.trashed->native());
    if (sacrifice.restored)
        json["restored"] = dateJson(*sacrifice.restored);
    if (sacrifice.lost)
        json["lost"] = *sacrifice.lost;
    if (sacrifice.deleted)
        json["deleted"] = dateJson(*sacrifice.deleted);
    return json;
}

std::optional<Sacrifice> sacrificeFromJson(const Json& json) {
    using Key = JsonReader::Key;
    JsonReader reader(json);
    Sacrifice sacrifice;
    const auto id = Uuid::fromString(reader.string("id").value_or(""));
    const auto mode = disposeModeFromRawValue(reader.string("mode").value_or(""));
    sacrifice.name = reader.string("name").value_or("");
    sacrifice.bytes = reader.integer("bytes").value_or(0);
    sacrifice.date = reader.date("date").value_or(Date{});
    sacrifice.original = readPath(reader, "original");
    sacrifice.trashed = readPath(reader, "trashed");
    sacrifice.restored = reader.date("restored", Key::optional);
    sacrifice.lost = reader.boolean("lost", Key::optional);
    sacrifice.deleted = reader.date("deleted", Key::optional);
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
    return jsonText(array);
}

std::optional<std::vector<Sacrifice>> decodeSacrifices(const std::string& text) {
    const Json array = parsedJson(text);
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
    return jsonText(array);
}

std::optional<std::map<Date, DayTally>> decodeDays(const std::string& text) {
    const Json array = parsedJson(text);
    if (!array.is_array() || array.size() % 2 != 0)
        return std::nullopt;
    std::map<Date, DayTally> days;
    for (std::size_t i = 0; i < array.size(); i += 2) {
        JsonReader reader(array[i + 1]);
        const auto count = reader.integer("count");
        const auto bytes = reader.integer("bytes");
        if (!array[i].is_number() || !count || !bytes)
            return std::nullopt;
        days[Date{array[i].get<double>()}] = {*count, *bytes};
    }
    return days;
}

} // namespace vexmoor
