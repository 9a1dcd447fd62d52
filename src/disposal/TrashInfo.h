#pragma once

#include "base/Date.h"
#include "base/Path.h"

#include <cstdint>
#include <functional>
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

    /// Whether its date is the one that was written for that moment. Where the clock has another
    /// time zone since, the date reads shifted; then the file's own time has to agree.
    [[nodiscard]] bool isOfMoment(Date moment,
                                  const std::function<std::int64_t()>& fileSeconds) const;
};

/// The name of the info file that belongs to a stored name.
std::string infoName(std::string_view storedName);

} // namespace vexmoor
