#pragma once

#include "base/Result.h"

#include <optional>
#include <string_view>

namespace vexmoor {

/// Error codes of disposing and putting back. System errors keep their own codes.
enum class DisposalError {
    goneFromBin = 1,
    isRoot,
    isHome,
    isDots,
    isMountPoint,
    holdsMountPoint,
    isBin,
    isInsideBin,
    holdsBin,
    noBinOnVolume, ///< the cause gives the reason, if known
    otherVolume,
    notInBin,
    invalidDestination,
    noFreeName,
    volumeNotThere,  ///< the volume whose Bin contains the item
    withoutInfo,     ///< the item is in the Bin but cannot be identified
    journalSetAside, ///< Error::path is its new path
    partlyRemoved,   ///< `count` items remain; the causes are the first errors
    stopped,
    replaced,
    isOwnData,
    isOnTheWay,
    journalLost,  ///< batches were recorded in it, but it is empty or missing
    volumeAway,   ///< the item was being dissolved there when the batch was interrupted
    failedBefore, ///< in an interrupted batch; Error::operation is the reason
    ambiguous,    ///< Error::operation lists matches; `count` more exist
    isPartOfSystem,
    stoppedPartly, ///< after removing `count` items
    cutOff,        ///< dissolving was interrupted; Error::path is what remains
    ownedByOther,  ///< cause: the folder must not be used as a Bin
    openToOthers,  ///< same
    reported,      ///< by another version of this program; Error::operation is its message
};

const std::error_category& disposalCategory();
std::error_code make_error_code(DisposalError error);

inline Error disposalError(DisposalError error, std::filesystem::path path = {},
                           std::string operation = {}) {
    return {make_error_code(error), std::move(operation), std::move(path)};
}

/// Returns the code with that name (codeName) of any category, or nullopt.
std::optional<std::error_code> codeNamed(std::string_view name);

/// Returns a sentence for the user, in the user's language. It does not name the item, which is
/// shown beside it, but names other files involved.
std::string describe(const Error& error);

} // namespace vexmoor

template <>
struct std::is_error_code_enum<vexmoor::DisposalError> : std::true_type {};
