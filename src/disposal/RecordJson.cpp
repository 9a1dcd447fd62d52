#include "RecordJson.h"

#include "base/JsonReader.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <ctime>
#include <type_traits>

namespace vexmoor {

using Json = nlohmann::ordered_json;

namespace {

// The years 1000 to 9999, which have four digits.
constexpr double kFirstIsoSecond = -30'610'224'000;
constexpr double kLastIsoSecond = 253'402'300'799;

Json dateJson(Date date) {
    return date.secondsSinceReference;
}

/// Returns an ISO 8601 time in UTC, for example "2026-03-14T22:04:00Z".
std::string isoTime(Date date) {
    const auto seconds = static_cast<std::time_t>(
        std::clamp(std::floor(date.unixSeconds()), kFirstIsoSecond, kLastIsoSecond));
    std::tm utc{};
    gmtime_r(&seconds, &utc);
    char text[32];
    std::strftime(text, sizeof text, "%Y-%m-%dT%H:%M:%SZ", &utc);
    return text;
}

/// Appends a JSON string; `text` must be UTF-8.
void appendString(std::string& json, std::string_view text) {
    constexpr const char* kDigits = "0123456789abcdef";
    json += '"';
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (c == '"' || c == '\\') {
            json += '\\';
            json += c;
        } else if (byte < 0x20) {
            json += "\\u00";
            json += kDigits[byte >> 4U];
            json += kDigits[byte & 0xfU];
        } else {
            json += c;
        }
    }
    json += '"';
}

void append(std::string& json, const char* key, std::string_view text) {
    json.append(",\"").append(key).append("\":");
    appendString(json, text);
}

template <typename Number>
void append(std::string& json, const char* key, Number number) {
    char digits[32];
    const auto end = std::to_chars(digits, digits + sizeof digits, number).ptr;
    json.append(",\"").append(key).append("\":").append(digits, end);
    if constexpr (std::is_floating_point_v<Number>)
        if (std::none_of(digits, end, [](char c) { return c == '.' || c == 'e'; }))
            json += ".0";
}

void append(std::string& json, const char* key, const std::optional<StoredPath>& path) {
    if (path)
        append(json, key, std::string_view(pathToJsonText(path->native())));
}

void append(std::string& json, const char* key, const std::optional<Date>& date) {
    if (date)
        append(json, key, date->secondsSinceReference);
}

/// Appends the record without facts and closing brace. Much faster than building a Json value.
void appendOpen(std::string& json, const Sacrifice& sacrifice) {
    json.append(R"({"id":")").append(sacrifice.id.toString()) += '"';
    if (isValidUtf8(sacrifice.name))
        append(json, "name", std::string_view(sacrifice.name));
    else
        json.append(R"(,"name":)").append(jsonText(sacrifice.name)); // replaces invalid bytes
    append(json, "bytes", sacrifice.bytes);
    append(json, "mode", toRawValue(sacrifice.mode));
    append(json, "date", sacrifice.date.secondsSinceReference);
    append(json, "original", sacrifice.original);
    append(json, "trashed", sacrifice.trashed);
    append(json, "restored", sacrifice.restored);
    if (sacrifice.lost)
        json += *sacrifice.lost ? R"(,"lost":true)" : R"(,"lost":false)";
    append(json, "deleted", sacrifice.deleted);
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

Json toDocument(const Sacrifice& sacrifice) {
    Json json = toJson(sacrifice);
    json["isoDate"] = isoTime(sacrifice.date);
    if (sacrifice.restored)
        json["isoRestored"] = isoTime(*sacrifice.restored);
    if (sacrifice.deleted)
        json["isoDeleted"] = isoTime(*sacrifice.deleted);
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

std::string recordText(const Sacrifice& sacrifice) {
    std::string json;
    appendOpen(json, sacrifice);
    const auto& facts = sacrifice.facts;
    json += R"(,"facts":{"kind":)" + std::to_string(facts.kind);
    if (facts.size >= 0)
        append(json, "size", facts.size);
    if (facts.birthNanoseconds != 0)
        append(json, "birth", facts.birthNanoseconds);
    if (facts.inode != 0)
        append(json, "inode", facts.inode);
    if (!facts.volume.empty())
        append(json, "volume", std::string_view(displayText(facts.volume)));
    return json + "}}";
}

std::optional<Sacrifice> recordFromJson(const Json& json) {
    auto sacrifice = sacrificeFromJson(json);
    if (sacrifice && json.contains("facts"))
        sacrifice->facts = factsFromJson(json["facts"]);
    return sacrifice;
}

std::string encode(const std::vector<Sacrifice>& sacrifices) {
    std::string json = "[";
    for (const auto& sacrifice : sacrifices) {
        if (json.size() > 1)
            json += ',';
        appendOpen(json, sacrifice);
        json += '}';
    }
    return json + "]";
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
