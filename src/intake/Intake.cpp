#include "Intake.h"

#include "intake/Texts.h"

#include <algorithm>
#include <utility>

namespace vexmoor {

/// The common part of all batches.
struct Intake::Batch {
    Dialogs& dialogs;
    BatchCompletion completion;
    std::vector<Failure> missing{}; ///< items that failed before the batch began
    RunningBatches::Meter meter{};
};

struct Intake::FedBatch : Batch {
    FedItems fed;
    DisposeMode mode = DisposeMode::bin;
    bool fromFinder = false;
};

/// A batch of items to put back or delete.
struct Intake::BinBatch : Batch {
    JournalKind kind;
    std::vector<Sacrifice> items{};
    /// The items put back or deleted by unfinished batches. The ledger did not have these changes
    /// yet when this batch looked up its items.
    std::shared_ptr<std::set<Uuid>> takenOut{};
};

namespace {

void finish(const BatchCompletion& completion, BatchResult result) {
    if (completion)
        completion(std::move(result));
}

void finishDeclined(const BatchCompletion& completion) {
    BatchResult result;
    result.declined = true;
    finish(completion, std::move(result));
}

std::vector<Sacrifice> restorable(std::vector<Sacrifice> items) {
    std::erase_if(items, [](const Sacrifice& item) { return !item.canRestore(); });
    return items;
}

} // namespace

Intake::Intake(Parts parts)
    : m_parts(std::move(parts)), m_settlement(m_parts.defaults),
      m_infoRepair(
          {m_parts.binnedItems, m_parts.directories, m_parts.main, m_parts.work, m_batches}) {}

void Intake::consume(const std::vector<Path>& items, bool fromFinder, BatchCompletion completion,
                     const BatchOptions& options) {
    auto fed = FedItems::of(items, options.seen, m_inFlight, options.tellsOfThoseOnTheWay);
    Batch common{dialogsOf(options), std::move(completion), std::exchange(fed.refused, {})};
    const auto batch = std::make_shared<FedBatch>(
        FedBatch{std::move(common), std::move(fed),
                 options.mode.value_or(m_parts.settings.mode.get()), fromFinder});
    if (batch->fed.items.empty()) {
        if (!batch->missing.empty())
            complete(*batch, {});
        else
            finish(batch->completion, {});
        return;
    }
    for (const auto& item : batch->fed.items) // other batches may begin while the user is asked
        m_inFlight.insert(item.native());
    if (batch->mode == DisposeMode::dissolve && m_parts.settings.confirmDissolve.get())
        askToDissolve(batch, options);
    else
        beginFeed(batch, options);
}

void Intake::askToDissolve(const std::shared_ptr<FedBatch>& batch, const BatchOptions& options) {
    batch->fed.look();
    batch->dialogs.ask(dissolveQuestion(batch->fed.items.size(), firstNames(batch->fed.items)),
                       [this, batch, options](const Answer& answer) {
                           if (answer.suppressed)
                               m_parts.settings.confirmDissolve.set(false);
                           if (answer.confirmed) {
                               beginFeed(batch, options);
                               return;
                           }
                           disarm(batch->fromFinder); // items that stay need no undo
                           for (const auto& item : batch->fed.items)
                               m_inFlight.erase(item.native());
                           finishDeclined(batch->completion);
                       });
}

void Intake::beginFeed(const std::shared_ptr<FedBatch>& batch, const BatchOptions& options) {
    if (batch->mode == DisposeMode::dissolve)
        disarm(batch->fromFinder); // dissolving cannot be undone
    batch->meter = m_batches.begin(options.meter);
    if (m_parts.settings.sound.get())
        m_parts.sizzle.play();
    const auto first = batch->fed.items.begin();
    const auto count = std::min(batch->fed.items.size(), DisposalJob::kPictured);
    prefetchPictures(m_parts.thumbnails, {first, first + static_cast<std::ptrdiff_t>(count)},
                     [this, batch](ItemPictures pictures) { dispose(batch, std::move(pictures)); });
}

void Intake::dispose(const std::shared_ptr<FedBatch>& batch, ItemPictures pictures) {
    m_parts.work.post(
        [this, batch, pictures = std::move(pictures), start = m_settlement.start()]() mutable {
            DisposalJob job(
                {batch->fed.items, batch->mode, batch->fed.seen, std::move(pictures), start},
                {m_parts.directories, m_parts.journal, m_parts.thumbnails, *batch->meter,
                 m_parts.clock, [this](std::vector<PicturePointer> burning) {
                     m_parts.main.post(
                         [this, burning = std::move(burning)] { m_parts.animation.play(burning); });
                 }});
            const auto output = std::make_shared<DisposalJob::Output>(job.run());
            m_parts.main.post([this, batch, output] { complete(*batch, std::move(*output)); });
        });
}

void Intake::complete(FedBatch& batch, DisposalJob::Output output) {
    auto& result = output.result;
    for (const auto& item : batch.fed.items)
        m_inFlight.erase(item.native());
    if (!output.animationStarted && !output.pictures.empty())
        m_parts.animation.play(std::move(output.pictures));
    result.storeError = m_settlement.commit(output.journal, [&] {
        m_parts.ledger.record(result.done);
        m_parts.binnedItems.add(output.journal ? output.journal->number : 0, result.done);
        result.unlocked = m_parts.progression.record(output.offerings, batch.mode);
    });
    registerUndo(result.done, batch.fromFinder);
    if (output.journal)
        m_infoRepair.lookAfter(result.done, output.journal->number);
    conclude(batch, std::move(result), &intakeFailures);
}

void Intake::registerUndo(const std::vector<Sacrifice>& done, bool fromFinder) {
    if (std::ranges::none_of(done, &Sacrifice::canRestore)) {
        disarm(fromFinder);
        return;
    }
    if (m_parts.undoStack == nullptr)
        return;
    const auto items = std::make_shared<const std::vector<Sacrifice>>(restorable(done));
    m_parts.undoStack->push(
        sacrificeActionName(items->size()), [this, items] { restore(*items); },
        [this, items] { return m_parts.binnedItems.hasAny(*items); });
}

void Intake::restore(std::vector<Sacrifice> items, BatchCompletion completion,
                     const BatchOptions& options) {
    auto wanted = m_parts.binnedItems.current(std::move(items));
    if (wanted.empty()) {
        finishWithoutItems(JournalKind::putBack, std::move(completion), options);
        return;
    }
    m_parts.undoKey.disarm();
    beginBinJob(JournalKind::putBack, std::move(wanted), std::move(completion), options);
}

void Intake::deleteImmediately(std::vector<Sacrifice> items, BatchCompletion completion,
                               const BatchOptions& options) {
    auto wanted = restorable(std::move(items));
    if (wanted.empty()) {
        finishWithoutItems(JournalKind::erase, std::move(completion), options);
        return;
    }
    const auto question = deleteQuestion(wanted);
    dialogsOf(options).ask(question, [this, wanted = std::move(wanted), options,
                                      completion = std::move(completion)](const Answer& answer) {
        if (answer.confirmed)
            beginDeletion(wanted, completion, options);
        else
            finishDeclined(completion);
    });
}

/// Items that left the Bin while the user was asked are reported as gone.
void Intake::beginDeletion(const std::vector<Sacrifice>& items, BatchCompletion completion,
                           BatchOptions options) {
    auto wanted = m_parts.binnedItems.current(items);
    for (const auto& item : items)
        if (std::ranges::find(wanted, item.id, &Sacrifice::id) == wanted.end())
            options.missing.push_back(
                {item.name,
                 disposalError(DisposalError::goneFromBin, item.trashed.value_or(item.name)),
                 item.original});
    if (wanted.empty())
        finishWithoutItems(JournalKind::erase, std::move(completion), options);
    else
        beginBinJob(JournalKind::erase, std::move(wanted), std::move(completion), options);
}

void Intake::beginBinJob(JournalKind kind, std::vector<Sacrifice> items, BatchCompletion completion,
                         const BatchOptions& options) {
    auto takenOut = m_takenOut.lock();
    if (!takenOut)
        m_takenOut = takenOut = std::make_shared<std::set<Uuid>>();
    Batch common{dialogsOf(options), std::move(completion), options.missing,
                 m_batches.begin(options.meter)};
    const auto batch = std::make_shared<BinBatch>(
        BinBatch{std::move(common), kind, std::move(items), std::move(takenOut)});
    m_parts.work.post([this, batch, start = m_settlement.start()] {
        BinJob job(batch->kind, m_parts.directories, m_parts.journal, *batch->meter, start,
                   batch->items, *batch->takenOut);
        const auto output = std::make_shared<BinJob::Output>(job.run());
        m_parts.main.post([this, batch, output] { completeBinJob(*batch, std::move(*output)); });
    });
}

void Intake::finishWithoutItems(JournalKind kind, BatchCompletion completion,
                                const BatchOptions& options) {
    BinBatch batch{{dialogsOf(options), std::move(completion), options.missing}, kind};
    if (batch.missing.empty())
        batch.dialogs.beep();
    completeBinJob(batch, {});
}

void Intake::completeBinJob(BinBatch& batch, BinJob::Output output) {
    auto& result = output.result;
    const bool isPutBack = batch.kind == JournalKind::putBack;
    if (!batch.items.empty())
        result.storeError = m_settlement.commit(output.journal, [&] { mark(output, isPutBack); });
    if (m_parts.undoStack != nullptr)
        m_parts.undoStack->refresh();
    if (output.journal)
        m_infoRepair.lookAfter(result.done, output.journal->number);
    conclude(batch, std::move(result), isPutBack ? &putBackFailures : &deleteFailures);
}

void Intake::mark(const BinJob::Output& output, bool isPutBack) {
    const std::set<Uuid> none;
    m_parts.ledger.mark(isPutBack ? output.done : none, output.lost,
                        isPutBack ? none : output.done);
    m_parts.binnedItems.remove(output.done);
    m_parts.binnedItems.remove(output.lost);
}

/// Reports failures, announces achievements and calls the completion.
void Intake::conclude(Batch& batch, BatchResult result, Report reportOf) {
    result.failures.insert(result.failures.begin(), batch.missing.begin(), batch.missing.end());
    if (result.storeError)
        batch.dialogs.report(storeFailure(*result.storeError));
    if (!result.untouched.empty())
        batch.dialogs.report(stoppedReport(result.untouched.size()));
    if (!result.failures.empty())
        batch.dialogs.report(reportOf(result.failures));
    if (!result.unlocked.empty())
        m_parts.progression.notify(result.unlocked);
    finish(batch.completion, std::move(result));
    m_batches.end(batch.meter);
}

Dialogs& Intake::dialogsOf(const BatchOptions& options) const {
    return options.dialogs != nullptr ? *options.dialogs : m_parts.dialogs;
}

void Intake::disarm(bool fromFinder) {
    if (fromFinder)
        m_parts.undoKey.disarm();
}

} // namespace vexmoor
