#pragma once

#include "base/Date.h"
#include "base/Path.h"
#include "platform/FileManager.h"

#include <nlohmann/json_fwd.hpp>

#include <cstdint>
#include <optional>
#include <string>

namespace vexmoor {

/// Properties that identify a binned item if its info file is missing, besides its path and date.
/// All except the inode number survive a remount.
struct ItemFacts {
    std::uint32_t kind = 0;            ///< file type bits of the mode; 0 if unknown
    std::int64_t size = -1;            ///< logical size of a file; -1 if unknown
    std::int64_t birthNanoseconds = 0; ///< since 1970; 0 if unknown
    std::uint64_t inode = 0;           ///< 0 if the file system renumbers inodes on each mount
    std::string volume{}; ///< volumeName() for a Bin on a volume; empty in the home Bin

    static ItemFacts of(const FileStatus& status, bool hasStableInode);

    /// True if the facts identify this item; false also if they are insufficient.
    [[nodiscard]] bool fit(const FileStatus& status) const;

    bool operator==(const ItemFacts&) const = default;
};

/// Identifies a binned item: path and date are compared with its info file, the facts are used
/// without one.
struct BinRecord {
    Path path; ///< original absolute path
    std::optional<Date> deletionDate{};
    ItemFacts facts{};
};

/// True if the difference is possible between two time zones: a multiple of 15 minutes, at most 26
/// hours.
bool isZoneShift(double seconds);

nlohmann::ordered_json toJson(const ItemFacts& facts);

/// Missing facts and facts of a wrong type count as unknown.
ItemFacts factsFromJson(const nlohmann::ordered_json& json);

} // namespace vexmoor
