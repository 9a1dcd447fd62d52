#pragma once

#include "base/Executor.h"
#include "intake/BinnedItems.h"
#include "intake/RunningBatches.h"
#include "platform/UserDirectories.h"

#include <optional>

namespace vexmoor {

class Disposer;

// A power cut empties the info files that were written last, as their names reach the disk before
// what is in them. They are written again from the records.

/// Whether the item lies in its Bin with an info file that is missing or empty; nullopt if the item
/// does not lie there.
[[nodiscard]] std::optional<bool> lacksInfo(const Sacrifice& item);

/// Writes the info files of a Bin's items again that lack one. The items come newest first. One
/// thread.
class InfoRepair {
  public:
    explicit InfoRepair(Disposer& disposer) : m_disposer(disposer) {}

    /// Whether an older item may lack its info file too.
    bool repair(const Sacrifice& item);

  private:
    Disposer& m_disposer;
    int m_whole = 0; ///< in a row
};

/// The same in the Bins of other volumes than home's. Recovery leaves them alone, as a volume may
/// be away or hang, so each is looked at after a batch that used it. Main thread; the file work
/// runs on `work`, whose jobs it must outlive.
class VolumeInfoRepair {
  public:
    struct Parts {
        BinnedItems binnedItems;
        UserDirectories directories;
        Executor& main;
        Executor& work;
        RunningBatches& batches; ///< a repair is one more
    };

    explicit VolumeInfoRepair(Parts parts) : m_parts(std::move(parts)) {}

    /// Looks at the Bins of the volumes that these items lie in or have left. `batch` is the number
    /// of theirs.
    void lookAfter(const std::vector<Sacrifice>& items, std::int64_t batch);

  private:
    void look(const Path& bin, std::int64_t batch);
    void repair(const Path& bin);

    Parts m_parts;
};

} // namespace vexmoor
