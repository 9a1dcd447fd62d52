#pragma once

#include "intake/BatchResult.h"

#include <nlohmann/json_fwd.hpp>

#include <string>

namespace vexmoor {

/// The words for what a command did: "Moved to the Bin", "Put back", "Deleted from the Bin".
struct ReportWords {
    std::string one; ///< before a name
    std::string many;
};

/// Prints a batch's result, failures to stderr, and answers the exit status.
int reportBatch(const BatchResult& result, const ReportWords& words, bool asJson);

/// The JSON document of a batch's result (docs/command-line.md).
nlohmann::ordered_json toJson(const BatchResult& result);

} // namespace vexmoor
