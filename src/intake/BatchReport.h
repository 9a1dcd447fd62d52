#pragma once

#include "intake/BatchResult.h"

#include <nlohmann/json_fwd.hpp>

#include <optional>
#include <string>
#include <vector>

namespace vexmoor {

/// A batch's result as the command line prints it and the session bus carries it.
struct BatchReport {
    std::vector<Sacrifice> done;
    std::vector<StoredPath> landings; ///< of a put-back: where each of `done` is now
    std::vector<Failure> failures;
    std::vector<StoredPath> untouched;
    std::vector<std::string> unlocked; ///< ids of achievements
    bool declined = false;
    std::optional<Error> storeError;

    static BatchReport of(BatchResult result);

    /// Whether the batch had nothing to do.
    [[nodiscard]] bool isEmpty() const { return *this == BatchReport(); }

    bool operator==(const BatchReport&) const = default;
};

/// The JSON document (docs/command-line.md).
nlohmann::ordered_json toJson(const BatchReport& report);

/// Nothing where it is not such a document.
std::optional<BatchReport> batchReportFromJson(const nlohmann::ordered_json& json);

} // namespace vexmoor
