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

/// The record of one item that was disposed of, and of what happened to it afterwards.
struct Sacrifice {
    Uuid id;
    std::string name;       ///< to show: valid UTF-8
    std::int64_t bytes = 0; ///< allocated on the disk
    DisposeMode mode = DisposeMode::bin;
    Date date;
    std::optional<StoredPath> original; ///< where it was; only when it went to the Bin
    std::optional<StoredPath> trashed;  ///< where it lies in the Bin
    std::optional<Date> restored;
    std::optional<bool> lost; ///< true when it was found gone from the Bin
    std::optional<Date> deleted;
    ItemFacts facts{}; ///< of what lies in the Bin; not a part of the record's JSON

    /// Whether it can still be put back or deleted from the Bin.
    [[nodiscard]] bool canRestore() const {
        return mode == DisposeMode::bin && original && trashed && !restored &&
               !lost.value_or(false) && !deleted;
    }

    /// Of an item that went to the Bin.
    [[nodiscard]] BinRecord binRecord() const { return {original.value_or(""), date, facts}; }

    bool operator==(const Sacrifice&) const = default;
};

} // namespace vexmoor
