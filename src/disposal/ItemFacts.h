#pragma once

#include "base/Date.h"
#include "base/Path.h"
#include "platform/FileManager.h"

#include <nlohmann/json_fwd.hpp>

#include <cstdint>
#include <optional>
#include <string>

namespace vexmoor {

/// What is remembered of a binned item beside its path and date, to know it by where its info file
/// is gone. All but the inode number survives a remount.
struct ItemFacts {
    std::uint32_t kind = 0;            ///< file type bits of the mode; 0 where nothing is known
    std::int64_t size = -1;            ///< logical bytes of a file; -1 where unknown
    std::int64_t birthNanoseconds = 0; ///< since 1970; 0 where unknown
    std::uint64_t inode = 0; ///< 0 where the file system numbers its files again at each mount
    std::string volume{};    ///< volumeName() of a volume's Bin; empty in the home Bin

    static ItemFacts of(const FileStatus& status, bool hasStableInode);

    /// Whether the facts say that this is the item. False also where they are too few to say so.
    [[nodiscard]] bool fit(const FileStatus& status) const;

    bool operator==(const ItemFacts&) const = default;
};

/// What identifies a binned item: its info file names the path and the date; the facts are for
/// where it does not.
struct BinRecord {
    Path path; ///< where it was, absolute
    std::optional<Date> deletionDate{};
    ItemFacts facts{};
};

/// Whether the distance is one between two time zones: quarters of an hour, at most 26 hours.
bool isZoneShift(double seconds);

nlohmann::ordered_json toJson(const ItemFacts& facts);

/// Facts that are missing or of a wrong type count as unknown.
ItemFacts factsFromJson(const nlohmann::ordered_json& json);

} // namespace vexmoor
