#include "Intake.h"

#include "intake/Texts.h"

#include <algorithm>
#include <utility>

namespace vexmoor {

struct Intake::Batch {
    FedItems fed;
    DisposeMode mode = DisposeMode::bin;
    bool fromFinder = false;
    std::map<std::string, PicturePointer> thumbnails{};
    std::size_t thumbnailsAwaited = 0;
    Dialogs& dialogs;
    RunningBatches::Meter meter{};
    BatchCompletion completion;
};

/// Items that are put back or deleted.
struct Intake::BinBatch {
    JournalKind kind;
    std::vector<Sacrifice> items;
    std::vector<Failure> missing;
    Dialogs& dialogs;
    RunningBatches::Meter meter;
    BatchCompletion completion;
    /// What the batches that are not over have put back or deleted: the ledger, which this one's
    /// items were looked up in, did not know it yet.
    std::shared_ptr<std::set<Uuid>> takenOut;
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

/// What went wrong beside the items themselves.
void tell(Dialogs& dialogs, const BatchResult& result) {
    if (result.storeError)
        dialogs.report(storeFailure(*result.storeError));
    if (!result.untouched.empty())
        dialogs.report(stoppedReport(result.untouched.size()));
}

std::vector<Sacrifice> restorable(std::vector<Sacrifice> items) {
    std::erase_if(items, [](const Sacrifice& item) { return !item.canRestore(); });
    return items;
}

} // namespace

Intake::Intake(Parts parts) : m_parts(std::move(parts)), m_settlement(m_parts.defaults) {}

void Intake::consume(const std::vector<Path>& items, bool fromFinder, BatchCompletion completion,
                     const BatchOptions& options) {
    const std::shared_ptr<Batch> batch(new Batch{
        .fed = FedItems::of(items, options.seen, m_inFlight, options.tellsOfThoseOnTheWay),
        .mode = options.mode.value_or(m_parts.settings.mode.get()),
        .fromFinder = fromFinder,
        .dialogs = dialogsOf(options),
        .completion = std::move(completion)});
    if (batch->fed.items.empty()) {
        if (!batch->fed.refused.empty())
            complete(*batch, {});
        else
            finish(batch->completion, {});
        return;
    }
    for (const auto& item : batch->fed.items) // other batches may come while the user is asked
        m_inFlight.insert(item.native());
    if (batch->mode == DisposeMode::dissolve && m_parts.settings.confirmDissolve.get())
        askToDissolve(batch, options);
    else
        beginFeed(batch, options);
}

void Intake::askToDissolve(const std::shared_ptr<Batch>& batch, const BatchOptions& options) {
    batch->fed.look();
    batch->dialogs.ask(dissolveQuestion(batch->fed.items.size(), firstNames(batch->fed.items)),
                       [this, batch, options](const Answer& answer) {
                           if (answer.suppressed)
                               m_parts.settings.confirmDissolve.set(false);
                           if (answer.confirmed) {
                               beginFeed(batch, options);
                               return;
                           }
                           disarm(batch->fromFinder); // what stays needs no undo
                           for (const auto& item : batch->fed.items)
                               m_inFlight.erase(item.native());
                           finishDeclined(batch->completion);
                       });
}

void Intake::beginFeed(const std::shared_ptr<Batch>& batch, const BatchOptions& options) {
    if (batch->mode == DisposeMode::dissolve)
        disarm(batch->fromFinder); // what is dissolved can't be undone
    batch->meter = m_batches.begin(options.meter);
    if (m_parts.settings.sound.get())
        m_parts.sizzle.play();
    prefetch(batch);
}

/// Disposal begins when all thumbnails that were asked for have been answered.
void Intake::prefetch(const std::shared_ptr<Batch>& batch) {
    const auto count = std::min(batch->fed.items.size(), DisposalJob::kPictured);
    batch->thumbnailsAwaited = count + 1; // one for the asking itself
    const auto answered = [this, batch] {
        if (--batch->thumbnailsAwaited == 0)
            dispose(batch);
    };
    for (std::size_t i = 0; i < count; ++i) {
        const Path item = batch->fed.items[i];
        m_parts.thumbnails.load(item, [batch, answered, item](PicturePointer picture) {
            if (picture)
                batch->thumbnails[item.native()] = std::move(picture);
            answered();
        });
    }
    answered();
}

void Intake::dispose(const std::shared_ptr<Batch>& batch) {
    m_parts.work.post([this, batch, start = m_settlement.start()] {
        DisposalJob job(
            {batch->fed.items, batch->mode, batch->fed.seen, std::move(batch->thumbnails), start},
            {m_parts.directories, m_parts.journal, m_parts.thumbnails, *batch->meter, m_parts.clock,
             [this](std::vector<PicturePointer> pictures) {
                 m_parts.main.post(
                     [this, pictures = std::move(pictures)] { m_parts.animation.play(pictures); });
             }});
        const auto output = std::make_shared<DisposalJob::Output>(job.run());
        m_parts.main.post([this, batch, output] { complete(*batch, std::move(*output)); });
    });
}

void Intake::complete(Batch& batch, DisposalJob::Output output) {
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
    result.failures.insert(result.failures.begin(), batch.fed.refused.begin(),
                           batch.fed.refused.end());
    tell(batch.dialogs, result);
    if (!result.failures.empty())
        batch.dialogs.report(intakeFailures(result.failures));
    if (!result.unlocked.empty())
        m_parts.progression.notify(result.unlocked);
    finish(batch.completion, std::move(result));
    m_batches.end(batch.meter);
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

/// What left the Bin while the user was asked is told as gone.
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
    runBinJob(std::shared_ptr<BinBatch>(
        new BinBatch{kind, std::move(items), options.missing, dialogsOf(options),
                     m_batches.begin(options.meter), std::move(completion), std::move(takenOut)}));
}

void Intake::finishWithoutItems(JournalKind kind, BatchCompletion completion,
                                const BatchOptions& options) {
    BinBatch batch{kind,   {}, options.missing, dialogsOf(options), nullptr, std::move(completion),
                   nullptr};
    if (batch.missing.empty())
        batch.dialogs.beep();
    completeBinJob(batch, {});
}

void Intake::runBinJob(const std::shared_ptr<BinBatch>& batch) {
    m_parts.work.post([this, batch, start = m_settlement.start()] {
        BinJob job(batch->kind, m_parts.directories, m_parts.journal, *batch->meter, start,
                   batch->items, *batch->takenOut);
        const auto output = std::make_shared<BinJob::Output>(job.run());
        m_parts.main.post([this, batch, output] { completeBinJob(*batch, std::move(*output)); });
    });
}

void Intake::completeBinJob(BinBatch& batch, BinJob::Output output) {
    auto& result = output.result;
    const bool isPutBack = batch.kind == JournalKind::putBack;
    if (!batch.items.empty())
        result.storeError = m_settlement.commit(output.journal, [&] { mark(output, isPutBack); });
    if (m_parts.undoStack != nullptr)
        m_parts.undoStack->refresh();
    result.failures.insert(result.failures.begin(), batch.missing.begin(), batch.missing.end());
    tell(batch.dialogs, result);
    if (!result.failures.empty())
        batch.dialogs.report(isPutBack ? putBackFailures(result.failures)
                                       : deleteFailures(result.failures));
    finish(batch.completion, std::move(result));
    m_batches.end(batch.meter);
}

void Intake::mark(const BinJob::Output& output, bool isPutBack) {
    const std::set<Uuid> none;
    m_parts.ledger.mark(isPutBack ? output.done : none, output.lost,
                        isPutBack ? none : output.done);
    m_parts.binnedItems.remove(output.done);
    m_parts.binnedItems.remove(output.lost);
}

Dialogs& Intake::dialogsOf(const BatchOptions& options) const {
    return options.dialogs != nullptr ? *options.dialogs : m_parts.dialogs;
}

void Intake::disarm(bool fromFinder) {
    if (fromFinder)
        m_parts.undoKey.disarm();
}

} // namespace vexmoor
