#pragma once

#include "base/Executor.h"
#include "disposal/Ledger.h"
#include "disposal/Settings.h"
#include "intake/BinJob.h"
#include "intake/BinnedItems.h"
#include "intake/DisposalJob.h"
#include "intake/FedItems.h"
#include "intake/InfoRepair.h"
#include "intake/PicturePrefetch.h"
#include "intake/RunningBatches.h"
#include "intake/Settlement.h"
#include "intake/UndoStack.h"

#include <memory>
#include <set>
#include <string>

namespace vexmoor {

/// Options of one batch.
struct BatchOptions {
    std::optional<DisposeMode> mode{};  ///< default: the setting
    Dialogs* dialogs = nullptr;         ///< default: the intake's; must outlive the batch
    std::shared_ptr<WorkMeter> meter{}; ///< counts the file work and stops it between two items
    /// The files at the items' paths when the user was asked about dissolving; other files are not
    /// dissolved. Empty if the user has not been asked.
    std::vector<FileIdentity> seen{};
    bool tellsOfThoseOnTheWay = false; ///< report items already being fed as failures
    std::vector<Failure> missing{};    ///< binned items that were not found, to be reported
};

/// Runs all batches: feeding, putting back and deleting from the Bin. File work runs on `work`, one
/// batch at a time; everything else runs on the main thread, where all functions must be called.
/// Must outlive its jobs.
class Intake {
  public:
    /// The intake's dependencies; all must outlive it.
    struct Parts {
        UserDirectories directories;
        UserDefaults& defaults;
        Ledger& ledger;
        Settings& settings;
        Progression& progression;
        BinnedItems binnedItems;
        Journal& journal;
        UndoStack* undoStack; ///< null if nothing can be undone
        Executor& main;
        Executor& work;
        Dialogs& dialogs;
        BatchAnimation& animation;
        SizzlePlayer& sizzle;
        Thumbnails& thumbnails;
        UndoKey& undoKey;
        Clock clock;
    };

    explicit Intake(Parts parts);
    Intake(const Intake&) = delete;
    Intake& operator=(const Intake&) = delete;

    /// Disposes of the items. Ignores duplicates and items that are already being fed; does nothing
    /// if none remain.
    void consume(const std::vector<Path>& items, bool fromFinder, BatchCompletion completion = {},
                 const BatchOptions& options = {});

    /// Puts back those of the items that can be put back, according to the current records.
    void restore(std::vector<Sacrifice> items, BatchCompletion completion = {},
                 const BatchOptions& options = {});

    /// Deletes those of the items that are still in the Bin, after asking.
    void deleteImmediately(std::vector<Sacrifice> items, BatchCompletion completion = {},
                           const BatchOptions& options = {});

    /// Retries storing changes whose failure was reported. Until it succeeds, the last batch is
    /// unknown.
    void storeLeftOver() { m_settlement.storeLeftOver(); }

    /// Stops all current and future batches; items that have not begun stay untouched.
    void stop() { m_batches.stop(); }
    [[nodiscard]] bool isStopped() const { return m_batches.isStopped(); }

    /// Returns the number of unfinished batches.
    [[nodiscard]] std::size_t batches() const { return m_batches.count(); }
    /// Calls `subscriber` with the number of unfinished batches now and whenever it changes.
    Subscription subscribeToBatches(std::function<void(std::size_t)> subscriber) {
        return m_batches.subscribe(std::move(subscriber));
    }

    /// Returns the items of unfinished batches.
    [[nodiscard]] const std::set<std::string>& inFlight() const { return m_inFlight; }

  private:
    struct Batch;
    struct FedBatch;
    struct BinBatch;
    using Report = FailureReport (*)(std::vector<Failure> failures);

    void askToDissolve(const std::shared_ptr<FedBatch>& batch, const BatchOptions& options);
    void beginFeed(const std::shared_ptr<FedBatch>& batch, const BatchOptions& options);
    void dispose(const std::shared_ptr<FedBatch>& batch, ItemPictures pictures);
    void complete(FedBatch& batch, DisposalJob::Output output);
    void registerUndo(const std::vector<Sacrifice>& done, bool fromFinder);
    void beginDeletion(const std::vector<Sacrifice>& items, BatchCompletion completion,
                       BatchOptions options);
    void beginBinJob(JournalKind kind, std::vector<Sacrifice> items, BatchCompletion completion,
                     const BatchOptions& options);
    void finishWithoutItems(JournalKind kind, BatchCompletion completion,
                            const BatchOptions& options);
    void completeBinJob(BinBatch& batch, BinJob::Output output);
    void mark(const BinJob::Output& output, bool isPutBack);
    void conclude(Batch& batch, BatchResult result, Report reportOf);
    [[nodiscard]] Dialogs& dialogsOf(const BatchOptions& options) const;
    void disarm(bool fromFinder);

    Parts m_parts;
    Settlement m_settlement;
    RunningBatches m_batches;
    VolumeInfoRepair m_infoRepair;
    std::set<std::string> m_inFlight;
    std::weak_ptr<std::set<Uuid>> m_takenOut; ///< see BinBatch; only used on the work queue
};

} // namespace vexmoor
