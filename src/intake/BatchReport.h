#pragma once

#include "intake/BatchResult.h"

#include <nlohmann/json_fwd.hpp>

#include <optional>
#include <string>
#include <vector>

namespace vexmoor {

/// The result of a batch as printed by the command line and sent over D-Bus.
struct BatchReport {
    std::vector<Sacrifice> done;
    std::vector<StoredPath> landings; ///< put-back only: current paths of the items in `done`
    std::vector<Failure> failures;
    std::vector<StoredPath> untouched;
    std::vector<std::string> unlocked; ///< ids of earned achievements
    bool declined = false;
    std::optional<Error> storeError;

    static BatchReport of(BatchResult result);

    /// True if the batch had nothing to do.
    [[nodiscard]] bool isEmpty() const { return *this == BatchReport(); }

    bool operator==(const BatchReport&) const = default;
};

/// Returns the JSON document (docs/command-line.md).
nlohmann::ordered_json toJson(const BatchReport& report);

/// Parses such a document; nullopt if it is not valid.
std::optional<BatchReport> batchReportFromJson(const nlohmann::ordered_json& json);

} // namespace vexmoor
