#pragma once

#include "disposal/Sacrifice.h"
#include "intake/Ports.h"
#include "progression/Achievement.h"

#include <functional>
#include <vector>

namespace vexmoor {

/// What became of a batch.
struct BatchResult {
    std::vector<Sacrifice> done;      ///< disposed of, put back or deleted, in order
    std::vector<StoredPath> landings; ///< of a put-back: where each of `done` is now
    std::vector<Failure> failures;
    std::vector<StoredPath> untouched; ///< the batch was stopped before them
    std::vector<Achievement> unlocked;
    std::optional<Error> storeError; ///< done, but the stores could not be written
    bool declined = false;           ///< the user said no
};

/// Told once, on the main thread, when all of a batch is over.
using BatchCompletion = std::function<void(BatchResult)>;

} // namespace vexmoor
