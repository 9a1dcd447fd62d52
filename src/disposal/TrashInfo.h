#pragma once

#include "base/Date.h"
#include "base/Path.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace vexmoor {

/// What a .trashinfo file holds (FreeDesktop.org Trash specification 1.0).
struct TrashInfo {
    Path path; ///< absolute in the home Bin, relative to the top folder in a volume's
    std::optional<Date> deletionDate;

    /// The file's whole text. The date is local time in whole seconds.
    [[nodiscard]] std::string toText() const;

    /// Reads such a text; nothing where it has no usable Path.
    static std::optional<TrashInfo> fromText(std::string_view text);

    /// Whether its date is the one that is written for that moment in the present time zone.
    [[nodiscard]] bool isOfMoment(Date moment) const;
};

/// Longer than a path of PATH_MAX bytes, all encoded, makes it: no info file.
constexpr std::size_t kLongestInfo = std::size_t{64} * 1024;

/// The name of the info file that belongs to a stored name.
std::string infoName(std::string_view storedName);

} // namespace vexmoor
