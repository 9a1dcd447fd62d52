#pragma once

#include "base/Date.h"
#include "disposal/DayTally.h"
#include "disposal/Sacrifice.h"

#include <nlohmann/json_fwd.hpp>

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace vexmoor {

// The records' JSON forms (docs/records.md). The parsing functions return nullopt if a required key
// is missing or a value has the wrong type.

nlohmann::ordered_json toJson(const Sacrifice& sacrifice);
/// The same for the documents of the command line: with the moments as ISO 8601 times too, in
/// "isoDate", "isoRestored" and "isoDeleted".
nlohmann::ordered_json toDocument(const Sacrifice& sacrifice);

std::optional<Sacrifice> sacrificeFromJson(const nlohmann::ordered_json& json);

/// Returns the record with the key "facts" as text, as stored in journal and table. Built without a
/// JSON document, because it is needed for each item of a batch.
std::string recordText(const Sacrifice& sacrifice);
std::optional<Sacrifice> recordFromJson(const nlohmann::ordered_json& json);

std::string encode(const std::vector<Sacrifice>& sacrifices);
std::optional<std::vector<Sacrifice>> decodeSacrifices(const std::string& text);

std::string encode(const std::map<Date, DayTally>& days);
std::optional<std::map<Date, DayTally>> decodeDays(const std::string& text);

} // namespace vexmoor
