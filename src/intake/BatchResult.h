#pragma once

#include "disposal/Sacrifice.h"
#include "intake/Ports.h"
#include "progression/Achievement.h"

#include <functional>
#include <vector>

namespace vexmoor {

/// The result of a batch.
struct BatchResult {
    std::vector<Sacrifice> done;      ///< items disposed of, put back or deleted, in order
    std::vector<StoredPath> landings; ///< put-back only: current paths of the items in `done`
    std::vector<Failure> failures;
    std::vector<StoredPath> untouched; ///< items left because the batch was stopped
    std::vector<Achievement> unlocked;
    std::optional<Error> storeError; ///< why the stores could not be written
    bool declined = false;           ///< the user answered no
};

/// Called once on the main thread when the batch is finished.
using BatchCompletion = std::function<void(BatchResult)>;

} // namespace vexmoor
