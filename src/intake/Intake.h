#pragma once

#include "base/Executor.h"
#include "disposal/Ledger.h"
#include "disposal/Settings.h"
#include "disposal/WorkMeter.h"
#include "intake/BinJob.h"
#include "intake/DisposalJob.h"
#include "intake/UndoStack.h"

#include <memory>
#include <set>
#include <string>

namespace vexmoor {

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

    /// Disposes of the items in the mode of the settings. An item that is being disposed of
    /// already, or comes twice, is left out; without any left nothing happens.
    void consume(const std::vector<Path>& items, bool fromFinder, BatchCompletion completion = {});

    /// The same in the given mode.
    void consume(const std::vector<Path>& items, bool fromFinder, DisposeMode mode,
                 BatchCompletion completion = {});

    /// Puts back those that can be, after a look at what the ledger knows of them by now.
    void restore(std::vector<Sacrifice> items, BatchCompletion completion = {});

    /// Deletes those that are still in the Bin, after asking.
    void deleteImmediately(std::vector<Sacrifice> items, BatchCompletion completion = {});

    /// Asks before a dissolve; true means go on.
    bool confirmDissolve(std::size_t count);

    /// Counts the file work as it goes on. Setting `stop` leaves the items that have not begun
    /// untouched, of this and of all further batches.
    WorkMeter& meter() { return m_meter; }

    /// The accepted items whose batches are not over.
    [[nodiscard]] const std::set<std::string>& inFlight() const { return m_inFlight; }

    /// Key of the newest journal's number that is in the stores.
    static constexpr const char* kRecordedKey = "journal.recorded";

  private:
    struct Batch;

    void prefetch(const std::shared_ptr<Batch>& batch);
    void dispose(const std::shared_ptr<Batch>& batch);
    void complete(Batch& batch, DisposalJob::Output output);
    void registerUndo(const std::vector<Sacrifice>& done, bool fromFinder);
    void runBinJob(JournalKind kind, std::vector<Sacrifice> items, BatchCompletion completion);
    void completeBinJob(JournalKind kind, BinJob::Output output, const BatchCompletion& completion);
    std::optional<Error> commit(std::optional<std::int64_t> journalNumber, JournalKind kind,
                                DisposeMode mode, const std::function<void()>& changes);
    [[nodiscard]] std::vector<Sacrifice> refreshed(std::vector<Sacrifice> items) const;
    [[nodiscard]] std::int64_t lastRecorded() const;
    void disarm(bool fromFinder);

    Parts m_parts;
    WorkMeter m_meter;
    std::set<std::string> m_inFlight;
};

} // namespace vexmoor
