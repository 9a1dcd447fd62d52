#pragma once

#include "base/Date.h"
#include "base/Path.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace vexmoor {

/// The content of a .trashinfo file (FreeDesktop.org Trash specification 1.0).
struct TrashInfo {
    Path path; ///< absolute in the home Bin, relative to the top folder in a volume's Bin
    std::optional<Date> deletionDate;

    /// Returns the file's text. The date is local time in whole seconds.
    [[nodiscard]] std::string toText() const;

    /// Parses such a text. Returns nullopt if it has no valid Path.
    static std::optional<TrashInfo> fromText(std::string_view text);

    /// True if the date equals the one written for `moment` in the current time zone.
    [[nodiscard]] bool isOfMoment(Date moment) const;
};

/// Larger than an info file with an encoded path of PATH_MAX bytes.
constexpr std::size_t kLongestInfo = std::size_t{64} * 1024;

/// Returns the name of the info file for a stored name.
std::string infoName(std::string_view storedName);

} // namespace vexmoor
