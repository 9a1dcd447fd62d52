#include "BatchReport.h"

#include "base/JsonReader.h"
#include "disposal/DisposalError.h"
#include "disposal/RecordJson.h"

#include <nlohmann/json.hpp>

namespace vexmoor {

using Json = nlohmann::ordered_json;

namespace {

Json pathsJson(const std::vector<StoredPath>& paths) {
    Json array = Json::array();
    for (const auto& path : paths)
        array.push_back(pathToJsonText(path.native()));
    return array;
}

std::optional<BatchReport::Failed> failedFromJson(const Json& json) {
    JsonReader reader(json);
    const auto name = reader.string("name");
    const auto text = reader.string("error");
    return reader.ok() ? std::optional(BatchReport::Failed{*name, *text}) : std::nullopt;
}

std::optional<std::string> textFromJson(const Json& json) {
    return json.is_string() ? std::optional(json.get<std::string>()) : std::nullopt;
}

std::optional<StoredPath> pathFromJson(const Json& json) {
    const auto text = textFromJson(json);
    return text ? std::optional<StoredPath>(pathFromJsonText(*text)) : std::nullopt;
}

/// Reads a list where there is one; false where it or an element of it is something else.
template <typename Element>
bool readList(const Json& document, const char* key, std::vector<Element>& list,
              std::optional<Element> (*read)(const Json&)) {
    const auto found = document.find(key);
    if (found == document.end())
        return true;
    if (!found->is_array())
        return false;
    for (const auto& json : *found) {
        auto element = read(json);
        if (!element)
            return false;
        list.push_back(*std::move(element));
    }
    return true;
}

} // namespace

BatchReport BatchReport::of(BatchResult result) {
    BatchReport report;
    report.done = std::move(result.done);
    report.landings = std::move(result.landings);
    for (auto& failure : result.failures)
        report.failures.push_back({std::move(failure.name), describe(failure.error)});
    report.untouched = std::move(result.untouched);
    for (const auto& achievement : result.unlocked)
        report.unlocked.emplace_back(achievement.id);
    report.declined = result.declined;
    if (result.storeError)
        report.storeError = describe(*result.storeError);
    return report;
}

Json toJson(const BatchReport& report) {
    Json json = {{"done", Json::array()},
                 {"failures", Json::array()},
                 {"untouched", pathsJson(report.untouched)}};
    for (const auto& item : report.done)
        json["done"].push_back(toJson(item));
    for (const auto& [name, text] : report.failures)
        json["failures"].push_back({{"name", name}, {"error", text}});
    if (!report.landings.empty())
        json["landings"] = pathsJson(report.landings);
    if (!report.unlocked.empty())
        json["unlocked"] = report.unlocked;
    if (report.declined)
        json["declined"] = true;
    if (report.storeError)
        json["storeError"] = *report.storeError;
    return json;
}

std::optional<BatchReport> batchReportFromJson(const Json& json) {
    JsonReader reader(json);
    BatchReport report;
    report.declined = reader.boolean("declined", JsonReader::Key::optional).value_or(false);
    report.storeError = reader.string("storeError", JsonReader::Key::optional);
    const bool isWhole = reader.ok() && json.contains("done") && json.contains("failures") &&
                         json.contains("untouched") &&
                         readList(json, "done", report.done, sacrificeFromJson) &&
                         readList(json, "landings", report.landings, pathFromJson) &&
                         readList(json, "failures", report.failures, failedFromJson) &&
                         readList(json, "untouched", report.untouched, pathFromJson) &&
                         readList(json, "unlocked", report.unlocked, textFromJson);
    return isWhole ? std::optional(std::move(report)) : std::nullopt;
}

} // namespace vexmoor
