#pragma once

#include "intake/BatchResult.h"

#include <nlohmann/json_fwd.hpp>

#include <string>

namespace vexmoor {

/// Prints a batch's result after `what` was done ("Put back"), failures to stderr, and answers the
/// exit status.
int reportBatch(const BatchResult& result, const char* what, bool asJson);

/// The JSON document of a batch's result (docs/command-line.md).
nlohmann::ordered_json toJson(const BatchResult& result);

} // namespace vexmoor
