#pragma once

#include "base/Executor.h"
#include "intake/BinnedItems.h"
#include "intake/RunningBatches.h"
#include "platform/UserDirectories.h"

#include <optional>

namespace vexmoor {

class Disposer;

// A power cut leaves the most recently written info files empty, because file systems write their
// names before their data. They are rewritten from the records.

/// True if the item is in its Bin with a missing or empty info file; nullopt if the item is not
/// there.
[[nodiscard]] std::optional<bool> lacksInfo(const Sacrifice& item);

/// Rewrites missing or empty info files of a Bin's items, which must be passed newest first. Not
/// thread-safe.
class InfoRepair {
  public:
    explicit InfoRepair(Disposer& disposer) : m_disposer(disposer) {}

    /// Returns whether older items may lack their info files too.
    bool repair(const Sacrifice& item);

  private:
    Disposer& m_disposer;
    int m_whole = 0; ///< consecutive items with an info file
};

/// Repairs info files in the Bins of other volumes. Recovery skips these, because a volume may be
/// missing or hang; each is checked after a batch that used it. Main thread; the file work runs on
/// `work`. Must outlive its jobs.
class VolumeInfoRepair {
  public:
    struct Parts {
        BinnedItems binnedItems;
        UserDirectories directories;
        Executor& main;
        Executor& work;
        RunningBatches& batches; ///< each repair counts as one
    };

    explicit VolumeInfoRepair(Parts parts) : m_parts(std::move(parts)) {}

    /// Checks the Bins of the volumes that these items are in or have left. `batch` is their
    /// batch's number.
    void lookAfter(const std::vector<Sacrifice>& items, std::int64_t batch);

  private:
    void look(const Path& bin, std::int64_t batch);
    void repair(const Path& bin);

    Parts m_parts;
};

} // namespace vexmoor
