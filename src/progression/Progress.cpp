#include "Progress.h"

#include "base/JsonReader.h"

#include <nlohmann/json.hpp>

namespace vexmoor {

namespace {

struct Field {
    const char* key;
    std::int64_t Progress::*value;
};

constexpr Field kNumbers[] = {
    {"items", &Progress::items},           {"bytes", &Progress::bytes},
    {"biggest", &Progress::biggest},       {"folders", &Progress::folders},
    {"dissolved", &Progress::dissolved},   {"streak", &Progress::streak},
    {"bestStreak", &Progress::bestStreak},
};

} // namespace

std::string encode(const Progress& progress) {
    nlohmann::ordered_json json;
    for (const auto& [key, value] : kNumbers)
        json[key] = progress.*value;
    if (progress.lastDay)
        json["lastDay"] = progress.lastDay->secondsSinceReference;
    json["extensions"] = progress.extensions;
    json["unlocked"] = progress.unlocked;
    json["skin"] = progress.skin;
    return jsonText(json);
}

std::optional<Progress> decodeProgress(std::string_view text) {
    const auto json = parsedJson(text);
    JsonReader reader(json);
    Progress progress;
    for (const auto& [key, value] : kNumbers)
        progress.*value = reader.integer(key).value_or(0);
    progress.lastDay = reader.date("lastDay", JsonReader::Key::optional);
    const auto extensions = reader.strings("extensions").value_or(std::vector<std::string>());
    progress.extensions = {extensions.begin(), extensions.end()};
    progress.unlocked = reader.strings("unlocked").value_or(std::vector<std::string>());
    progress.skin = reader.string("skin").value_or("");
    return reader.ok() ? std::optional(std::move(progress)) : std::nullopt;
}

} // namespace vexmoor
