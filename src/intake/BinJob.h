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
    bool isNoted = false; ///< false: note its intent when it is found in the Bin
};

/// The work-queue part of putting binned items back or deleting them from the Bin. Continues after
/// failures.
class BinJob : private GroupedWork<LeavingItem> {
  public:
    struct Output {
        BatchResult result;
        std::set<Uuid> done;
        std::set<Uuid> lost; ///< found missing from the Bin
        std::optional<JournalMark> journal;
    };

    /// `items` must outlive the job. `takenOut` contains the items that earlier batches put back or
    /// deleted; the job adds its own.
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
    std::set<Path> m_expected; ///< expected landings of this batch
    Output m_output;
};

} // namespace vexmoor
