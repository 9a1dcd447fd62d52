#pragma once

#include "disposal/Disposer.h"
#include "intake/BatchResult.h"
#include "intake/GroupedWork.h"
#include "intake/VolumeCheck.h"

#include <set>

namespace vexmoor {

/// An item that is about to leave the Bin.
struct LeavingItem {
    const Sacrifice* record = nullptr;
    JournalEntry entry{};
    bool isNoted = false; ///< else its intent is noted when it is seen to be there
};

/// The work-queue side of putting binned items back or deleting them from the Bin. One failure does
/// not stop the rest.
class BinJob : private GroupedWork<LeavingItem> {
  public:
    struct Output {
        BatchResult result;
        std::set<Uuid> done;
        std::set<Uuid> lost; ///< found gone from the Bin
        std::optional<JournalMark> journal;
    };

    /// `items` outlive the job. `takenOut` are the items that batches before this one put back or
    /// deleted; what this one does is added.
    BinJob(JournalKind kind, const UserDirectories& directories, Journal& journal, WorkMeter& meter,
           const JournalStart& start, const std::vector<Sacrifice>& items,
           std::set<Uuid>& takenOut);

    Output run();

  private:
    std::optional<LeavingItem> prepare(std::size_t number) override;
    void carryOut(LeavingItem& item) override;
    void fail(const LeavingItem& item, const Error& error) override;
    void leave(std::size_t number) override;
    void leave(const LeavingItem& item) override;
    Result<Path> act(LeavingItem& item);
    std::optional<Path> expectedLanding(const Path& original);

    JournalKind m_kind;
    const std::vector<Sacrifice>& m_items;
    std::set<Uuid>& m_takenOut;
    Disposer m_disposer;
    VolumeCheck m_volumes;
    std::set<Path> m_expected; ///< landings of this batch
    Output m_output;
};

} // namespace vexmoor
