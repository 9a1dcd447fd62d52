#pragma once

#include "base/Result.h"

#include <nlohmann/json_fwd.hpp>

#include <optional>

namespace vexmoor {

/// An error as JSON documents hold it: "code", the English "message", and what led to it, as
/// "cause" {"operation", "path", "count", "causes"}, each key where it says something.
nlohmann::ordered_json errorJson(const Error& error);

/// The error of such an object, which describe() then describes in the user's language; of a code
/// that is not known here, its message. nullopt if it is no such object.
std::optional<Error> errorFromJson(const nlohmann::ordered_json& json);

} // namespace vexmoor
