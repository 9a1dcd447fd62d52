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

/// How one batch is treated where that differs from the rest.
struct BatchOptions {
    std::optional<DisposeMode> mode{};  ///< else that of the settings
    Dialogs* dialogs = nullptr;         ///< who is asked and told, else the intake's; outlives it
    std::shared_ptr<WorkMeter> meter{}; ///< counts its file work and stops it between two items
    /// What stood at each item's path when the user was asked whether to dissolve it: nothing else
    /// is dissolved. Empty where nobody was asked yet.
    std::vector<FileIdentity> seen{};
    bool tellsOfThoseOnTheWay = false; ///< items left out for that are failures
    std::vector<Failure> missing{};    ///< binned items that were not found: told with the rest
};

/// The path that everything fed goes through, and what is done with binned items afterwards. The
/// batches' file work runs on `work`, one batch after another; all else on the main thread, where
/// this lives and is called. It must outlive the jobs that it posts.
class Intake {
  public:
    /// What it works on and calls; all outlive it.
    struct Parts {
        UserDirectories directories;
        UserDefaults& defaults;
        Ledger& ledger;
        Settings& settings;
        Progression& progression;
        BinnedItems binnedItems;
        Journal& journal;
        UndoStack* undoStack; ///< none where nothing is ever undone
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

    /// Disposes of the items. An item that is being disposed of already, or comes twice, is left
    /// out; without any left nothing happens.
    void consume(const std::vector<Path>& items, bool fromFinder, BatchCompletion completion = {},
                 const BatchOptions& options = {});

    /// Puts back those that can be, after a look at what the ledger knows of them by now.
    void restore(std::vector<Sacrifice> items, BatchCompletion completion = {},
                 const BatchOptions& options = {});

    /// Deletes those that are still in the Bin, after asking.
    void deleteImmediately(std::vector<Sacrifice> items, BatchCompletion completion = {},
                           const BatchOptions& options = {});

    /// Tries again to store what could not be stored, which was reported when it failed: until then
    /// it is not known what the last batch is.
    void storeLeftOver() { m_settlement.storeLeftOver(); }

    /// Leaves what has not begun untouched, of all batches that are there and that still come.
    void stop() { m_batches.stop(); }
    [[nodiscard]] bool isStopped() const { return m_batches.isStopped(); }

    /// How many batches are not over yet.
    [[nodiscard]] std::size_t batches() const { return m_batches.count(); }
    /// Calls with the number of batches at once and whenever it changes.
    Subscription subscribeToBatches(std::function<void(std::size_t)> subscriber) {
        return m_batches.subscribe(std::move(subscriber));
    }

    /// The accepted items whose batches are not over.
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
    std::weak_ptr<std::set<Uuid>> m_takenOut; ///< see BinBatch; the work queue's own
};

} // namespace vexmoor
