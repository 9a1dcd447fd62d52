#include "Outcome.h"

#include "base/Path.h"

#include <nlohmann/json.hpp>

namespace vexmoor {

nlohmann::ordered_json toJson(const Refusal& refusal) {
    const auto message = displayText(refusal.english);
    nlohmann::ordered_json json = {
        {"error", message}, {"code", refusal.code}, {"message", message}};
    if (!refusal.path.empty())
        json["path"] = pathToJsonText(refusal.path.native());
    return json;
}

} // namespace vexmoor
