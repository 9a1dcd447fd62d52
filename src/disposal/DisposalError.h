#pragma once

#include "base/Result.h"

#include <optional>
#include <string_view>

namespace vexmoor {

/// What only disposing and putting back can fail with; the system's own errors stay as they are.
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
    noBinOnVolume, ///< the cause says why, where that is known
    otherVolume,
    notInBin,
    invalidDestination,
    noFreeName,
    volumeNotThere,  ///< the one whose Bin the item lies in
    withoutInfo,     ///< it lies in the Bin, but whose it is cannot be told
    journalSetAside, ///< Error::path is where it is now
    partlyRemoved,   ///< `count` items remain; the causes are the first ones
    stopped,
    replaced,
    isOwnData,
    isOnTheWay,
    journalLost,  ///< batches were noted in it, and nothing can be read
    volumeAway,   ///< it was being dissolved there when the batch was cut off
    failedBefore, ///< in a batch that was cut off; Error::operation says why
    ambiguous,    ///< Error::operation lists what the name can mean, and there are `count` more
    isPartOfSystem,
    stoppedPartly, ///< after `count` items were removed
    cutOff,        ///< while it was dissolved; Error::path is what remains
    ownedByOther,  ///< a cause: of a folder that is not to be used as a Bin
    openToOthers,  ///< the same
    reported,      ///< by another version of this program; Error::operation is its sentence
};

const std::error_category& disposalCategory();
std::error_code make_error_code(DisposalError error);

inline Error disposalError(DisposalError error, std::filesystem::path path = {},
                           std::string operation = {}) {
    return {make_error_code(error), std::move(operation), std::move(path)};
}

/// The code of that name (codeName), of whatever category; nullopt if there is none.
std::optional<std::error_code> codeNamed(std::string_view name);

/// The sentence that the user reads, in the user's language. It does not name the item, which
/// stands beside it, but any other file that is at fault.
std::string describe(const Error& error);

} // namespace vexmoor

template <>
struct std::is_error_code_enum<vexmoor::DisposalError> : std::true_type {};
