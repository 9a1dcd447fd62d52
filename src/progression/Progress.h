#pragma once

#include "base/Date.h"
#include "skins/Skin.h"

#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace vexmoor {

/// What the user has achieved so far: the record that is stored.
struct Progress {
    std::int64_t items = 0;
    std::int64_t bytes = 0;
    std::int64_t biggest = 0; ///< bytes of the largest single item
    std::int64_t folders = 0;
    std::int64_t dissolved = 0;  ///< items
    std::int64_t streak = 0;     ///< days in a row with an offering, the last of them `lastDay`
    std::int64_t bestStreak = 0; ///< the longest ever
    std::optional<Date> lastDay; ///< the start of the last day with an offering
    std::set<std::string, std::less<>> extensions; ///< ever offered, in lower case
    std::vector<std::string> unlocked;             ///< achievements' ids as they were earned
    std::string skin{Skin::iron().id};             ///< the chosen one's id

    bool operator==(const Progress&) const = default;
};

// The record's JSON form (docs/records.md). Reading answers nothing where a required key is missing
// or anything has the wrong type.

std::string encode(const Progress& progress);
std::optional<Progress> decodeProgress(std::string_view text);

} // namespace vexmoor
