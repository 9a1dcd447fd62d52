#pragma once

#include "base/Date.h"
#include "base/Path.h"
#include "base/Uuid.h"
#include "disposal/DisposeMode.h"
#include "disposal/ItemFacts.h"

#include <cstdint>
#include <optional>
#include <string>

namespace vexmoor {

/// The record of one disposed item and of its later fate.
struct Sacrifice {
    Uuid id;
    std::string name;       ///< for display: valid UTF-8
    std::int64_t bytes = 0; ///< allocated bytes on disk
    DisposeMode mode = DisposeMode::bin;
    Date date;
    std::optional<StoredPath> original; ///< original path; only for binned items
    std::optional<StoredPath> trashed;  ///< path in the Bin
    std::optional<Date> restored;
    std::optional<bool> lost; ///< true if it was found missing from the Bin
    std::optional<Date> deleted;
    ItemFacts facts{}; ///< facts of the binned item; not part of the record's JSON

    /// True if the item can still be put back or deleted from the Bin.
    [[nodiscard]] bool canRestore() const {
        return mode == DisposeMode::bin && original && trashed && !restored &&
               !lost.value_or(false) && !deleted;
    }

    /// Requires a binned item.
    [[nodiscard]] BinRecord binRecord() const { return {original.value_or(""), date, facts}; }

    bool operator==(const Sacrifice&) const = default;
};

} // namespace vexmoor
