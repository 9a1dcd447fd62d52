#pragma once

#include "disposal/Journal.h"
#include "disposal/Ledger.h"
#include "intake/BinnedItems.h"
#include "platform/UserDirectories.h"
#include "progression/Progression.h"

#include <vector>

namespace vexmoor {

/// The result of recover().
struct RecoveryReport {
    std::int64_t disposed = 0; ///< items that reached the Bin or were dissolved, now recorded
    std::int64_t putBack = 0;
    std::int64_t deleted = 0;
    std::vector<Failure> failures;     ///< items that failed or were partly dissolved
    std::vector<Achievement> unlocked; ///< earned by the recorded items, to be announced
    std::vector<Error> problems;       ///< errors of the journal and of missing volumes
};

/// Updates the stores after a crash or a power cut: finds the items of unrecorded batches on the
/// disk and records each operation that took place. Rewrites info files that a power cut has
/// emptied. Items on a missing volume wait for a later start. Moves or deletes no user files. Main
/// thread, with the writer lock, before any batch.
RecoveryReport recover(Journal& journal, UserDefaults& defaults, Ledger& ledger,
                       Progression& progression, BinnedItems binnedItems,
                       const UserDirectories& directories);

/// True if recover() may find something. Cheap.
bool needsRecovery(const Journal& journal, const UserDefaults& defaults,
                   const BinnedItems& binnedItems, const UserDirectories& directories);

} // namespace vexmoor
