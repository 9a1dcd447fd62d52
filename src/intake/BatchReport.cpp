#include "BatchReport.h"

#include "base/JsonReader.h"
#include "disposal/ErrorJson.h"
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

std::optional<std::string> textFromJson(const Json& json) {
    return json.is_string() ? std::optional(json.get<std::string>()) : std::nullopt;
}

std::optional<StoredPath> pathFromJson(const Json& json) {
    const auto text = textFromJson(json);
    return text ? std::optional<StoredPath>(pathFromJsonText(*text)) : std::nullopt;
}

std::optional<Failure> failureFromJson(const Json& json) {
    JsonReader reader(json);
    const auto name = reader.string("name");
    auto error = errorFromJson(json);
    if (!reader.ok() || !error)
        return std::nullopt;
    Failure failure{*name, *std::move(error)};
    if (const auto path = json.find("path"); path != json.end())
        failure.path = pathFromJson(*path);
    return failure;
}

/// `error` is the former name of `message`.
Json failureJson(const Failure& failure) {
    Json json = {{"name", failure.name}};
    if (failure.path)
        json["path"] = pathToJsonText(failure.path->native());
    json.update(errorJson(failure.error));
    json["error"] = json["message"];
    return json;
}

/// Reads an optional list. Returns false if it or an element has the wrong type.
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
    report.failures = std::move(result.failures);
    report.untouched = std::move(result.untouched);
    for (const auto& achievement : result.unlocked)
        report.unlocked.emplace_back(achievement.id);
    report.declined = result.declined;
    report.storeError = std::move(result.storeError);
    return report;
}

Json toJson(const BatchReport& report) {
    Json json = {{"done", Json::array()},
                 {"failures", Json::array()},
                 {"untouched", pathsJson(report.untouched)}};
    for (const auto& item : report.done)
        json["done"].push_back(toDocument(item));
    for (const auto& failure : report.failures)
        json["failures"].push_back(failureJson(failure));
    if (!report.landings.empty())
        json["landings"] = pathsJson(report.landings);
    if (!report.unlocked.empty())
        json["unlocked"] = report.unlocked;
    if (report.declined)
        json["declined"] = true;
    if (report.storeError) {
        const auto failure = errorJson(*report.storeError);
        json["storeError"] = failure["message"];
        json["storeFailure"] = failure;
    }
    return json;
}

std::optional<BatchReport> batchReportFromJson(const Json& json) {
    JsonReader reader(json);
    BatchReport report;
    report.declined = reader.boolean("declined", JsonReader::Key::optional).value_or(false);
    const auto failure = json.is_object() ? json.find("storeFailure") : json.end();
    if (failure != json.end())
        report.storeError = errorFromJson(*failure);
    const bool isWhole = (failure == json.end() || report.storeError) && reader.ok() &&
                         json.contains("done") && json.contains("failures") &&
                         json.contains("untouched") &&
                         readList(json, "done", report.done, sacrificeFromJson) &&
                         readList(json, "landings", report.landings, pathFromJson) &&
                         readList(json, "failures", report.failures, failureFromJson) &&
                         readList(json, "untouched", report.untouched, pathFromJson) &&
                         readList(json, "unlocked", report.unlocked, textFromJson);
    return isWhole ? std::optional(std::move(report)) : std::nullopt;
}

} // namespace vexmoor
