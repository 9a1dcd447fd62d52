#pragma once

#include "base/Result.h"

#include <nlohmann/json_fwd.hpp>

#include <optional>

namespace vexmoor {

/// Returns an error's JSON form: "code", the English "message", and as "cause" an object with
/// "operation", "path", "count" and "causes", of which empty ones are omitted.
nlohmann::ordered_json errorJson(const Error& error);

/// Parses such an object, so that describe() can describe the error in the user's language; for an
/// unknown code keeps the message. Returns nullopt for any other JSON.
std::optional<Error> errorFromJson(const nlohmann::ordered_json& json);

} // namespace vexmoor
