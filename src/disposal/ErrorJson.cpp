#include "ErrorJson.h"

#include "base/JsonReader.h"
#include "base/Path.h"
#include "base/Text.h"
#include "disposal/DisposalError.h"

#include <nlohmann/json.hpp>

namespace vexmoor {

using Json = nlohmann::ordered_json;

namespace {

constexpr int kMostNested = 4;

Json causeJson(const Error& error) {
    Json json = Json::object();
    if (!error.operation.empty())
        json["operation"] = displayText(error.operation);
    if (!error.path.empty())
        json["path"] = pathToJsonText(error.path.native());
    if (error.count != 0)
        json["count"] = error.count;
    for (const auto& cause : error.causes)
        json["causes"].push_back(errorJson(cause));
    return json;
}

std::optional<Error> read(const Json& json, int depth);

/// Reads one cause. Returns false if a part of it has the wrong type.
bool readCause(const Json& json, Error& error, int depth) {
    using Key = JsonReader::Key;
    JsonReader reader(json);
    error.operation = reader.string("operation", Key::optional).value_or("");
    if (const auto path = reader.string("path", Key::optional))
        error.path = pathFromJsonText(*path);
    if (json.contains("count"))
        error.count = reader.integer("count").value_or(0);
    if (!reader.ok())
        return false;
    if (!json.contains("causes"))
        return true;
    for (const auto& element : json["causes"]) {
        auto cause = read(element, depth + 1);
        if (!cause)
            return false;
        error.causes.push_back(*std::move(cause));
    }
    return true;
}

std::optional<Error> read(const Json& json, int depth) {
    if (!json.is_object() || depth > kMostNested)
        return std::nullopt;
    JsonReader reader(json);
    const auto name = reader.string("code");
    const auto message = reader.string("message");
    if (!reader.ok())
        return std::nullopt;
    const auto code = codeNamed(*name);
    if (!code)
        return disposalError(DisposalError::reported, {}, *message);
    Error error{*code, {}, {}};
    const auto cause = json.find("cause");
    return cause == json.end() || readCause(*cause, error, depth) ? std::optional(error)
                                                                  : std::nullopt;
}

} // namespace

Json errorJson(const Error& error) {
    const InEnglish forMachines;
    Json json = {{"code", codeName(error.code)}, {"message", displayText(describe(error))}};
    if (Json cause = causeJson(error); !cause.empty())
        json["cause"] = std::move(cause);
    return json;
}

std::optional<Error> errorFromJson(const Json& json) {
    return read(json, 0);
}

} // namespace vexmoor
