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

/// The user's progress, as stored.
struct Progress {
    std::int64_t items = 0;
    std::int64_t bytes = 0;
    std::int64_t biggest = 0; ///< bytes of the largest single item
    std::int64_t folders = 0;
    std::int64_t dissolved = 0;  ///< items
    std::int64_t streak = 0;     ///< consecutive days with an offering, the last of them `lastDay`
    std::int64_t bestStreak = 0; ///< longest streak so far
    std::optional<Date> lastDay; ///< the start of the last day with an offering
    std::set<std::string, std::less<>> extensions; ///< every file extension offered, in lower case
    std::vector<std::string> unlocked; ///< ids of unlocked achievements, in the order of unlocking
    std::string skin{Skin::iron().id}; ///< id of the selected skin

    bool operator==(const Progress&) const = default;
};

// The record's JSON form (docs/records.md). decodeProgress() returns nullopt if a required key is
// missing or a value has the wrong type.

std::string encode(const Progress& progress);
std::optional<Progress> decodeProgress(std::string_view text);

} // namespace vexmoor
