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

// The records' JSON forms (docs/records.md). Reading answers nothing where a required key is
// missing or anything has the wrong type.

nlohmann::ordered_json toJson(const Sacrifice& sacrifice);
/// The same for the documents of the command line: with the moments as ISO 8601 times too, in
/// "isoDate", "isoRestored" and "isoDeleted".
nlohmann::ordered_json toDocument(const Sacrifice& sacrifice);

std::optional<Sacrifice> sacrificeFromJson(const nlohmann::ordered_json& json);

/// The record with its facts as a text, as journal and table keep it: the JSON form and the key
/// "facts". Written without a document in between, as there is one for each item of a batch.
std::string recordText(const Sacrifice& sacrifice);
std::optional<Sacrifice> recordFromJson(const nlohmann::ordered_json& json);

std::string encode(const std::vector<Sacrifice>& sacrifices);
std::optional<std::vector<Sacrifice>> decodeSacrifices(const std::string& text);

std::string encode(const std::map<Date, DayTally>& days);
std::optional<std::map<Date, DayTally>> decodeDays(const std::string& text);

} // namespace vexmoor
