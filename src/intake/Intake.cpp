#include "Intake.h"

#include "intake/Texts.h"

#include <algorithm>
#include <utility>

namespace vexmoor {

struct Intake::Batch {
    std::vector<StoredPath> items;
    SeenItems seen;
    std::vector<Failure> refused;
    DisposeMode mode = DisposeMode::bin;
    bool fromFinder = false;
    std::map<std::string, PicturePointer> thumbnails;
    std::size_t thumbnailsAwaited = 0;
    Dialogs& dialogs;
    std::shared_ptr<WorkMeter> meter;
    BatchCompletion completion;
};

/// Items that are put back or deleted.
struct Intake::BinBatch {
    JournalKind kind;
    std::vector<Sacrifice> items;
    std::vector<Failure> missing;
    Dialogs& dialogs;
    std::shared_ptr<WorkMeter> meter;
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

Intake::Intake(Parts parts) : m_parts(std::move(parts)) {}

void Intake::consume(const std::vector<Path>& items, bool fromFinder, BatchCompletion completion,
                     const BatchOptions& options) {
    const std::shared_ptr<Batch> batch(
        new Batch{.items = {},
                  .seen = {},
                  .refused = {},
                  .mode = options.mode.value_or(m_parts.settings.mode.get()),
                  .fromFinder = fromFinder,
                  .thumbnails = {},
                  .dialogs = dialogsOf(options),
                  .meter = nullptr,
                  .completion = std::move(completion)});
    gather(*batch, items, options);
    if (batch->items.empty()) {
        if (!batch->refused.empty())
            complete(*batch, {});
        else
            finish(batch->completion, {});
        return;
    }
    for (const auto& item : batch->items) // other batches may come while the user is asked
        m_inFlight.insert(item.native());
    if (batch->mode == DisposeMode::dissolve && m_parts.settings.confirmDissolve.get())
        askToDissolve(batch, options);
    else
        beginFeed(batch, options);
}

/// Each item once, and why others are refused before anything is asked.
void Intake::gather(Batch& batch, const std::vector<Path>& items,
                    const BatchOptions& options) const {
    std::set<std::string> seen;
    for (std::size_t i = 0; i < items.size(); ++i) {
        const Path& item = items[i];
        if (endsInDots(item)) {
            batch.refused.push_back(
                {displayText(item.native()), disposalError(DisposalError::isDots)});
            continue;
        }
        const Path path = standardized(item);
        const bool isOnTheWay = m_inFlight.contains(path.native());
        const bool isNew = seen.insert(path.native()).second;
        if (isNew && !isOnTheWay)
            batch.items.emplace_back(path);
        if (isNew && isOnTheWay && options.tellsOfThoseOnTheWay)
            batch.refused.push_back(
                {displayText(lastComponent(path)), disposalError(DisposalError::isOnTheWay)});
        if (i < options.seen.size())
            batch.seen.emplace(path.native(), options.seen[i]);
    }
}

void Intake::askToDissolve(const std::shared_ptr<Batch>& batch, const BatchOptions& options) {
    if (batch->seen.empty())
        for (const auto& item : batch->items)
            batch->seen.emplace(item.native(), identityAt(item));
    batch->dialogs.ask(dissolveQuestion(batch->items.size(), firstNames(batch->items)),
                       [this, batch, options](const Answer& answer) {
                           if (answer.suppressed)
                               m_parts.settings.confirmDissolve.set(false);
                           if (answer.confirmed) {
                               beginFeed(batch, options);
                               return;
                           }
                           disarm(batch->fromFinder); // what stays needs no undo
                           for (const auto& item : batch->items)
                               m_inFlight.erase(item.native());
                           finishDeclined(batch->completion);
                       });
}

void Intake::beginFeed(const std::shared_ptr<Batch>& batch, const BatchOptions& options) {
    if (batch->mode == DisposeMode::dissolve)
        disarm(batch->fromFinder); // what is dissolved can't be undone
    batch->meter = begin(options);
    if (m_parts.settings.sound.get())
        m_parts.sizzle.play();
    prefetch(batch);
}

/// Disposal begins when all thumbnails that were asked for have been answered.
void Intake::prefetch(const std::shared_ptr<Batch>& batch) {
    const auto count = std::min(batch->items.size(), DisposalJob::kPictured);
    batch->thumbnailsAwaited = count + 1; // one for the asking itself
    const auto answered = [this, batch] {
        if (--batch->thumbnailsAwaited == 0)
            dispose(batch);
    };
    for (std::size_t i = 0; i < count; ++i) {
        const Path item = batch->items[i];
        m_parts.thumbnails.load(item, [batch, answered, item](PicturePointer picture) {
            if (picture)
                batch->thumbnails[item.native()] = std::move(picture);
            answered();
        });
    }
    answered();
}

void Intake::dispose(const std::shared_ptr<Batch>& batch) {
    m_parts.work.post([this, batch, recorded = lastRecorded()] {
        DisposalJob job(
            {batch->items, batch->mode, batch->seen, std::move(batch->thumbnails), recorded},
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
    for (const auto& item : batch.items)
        m_inFlight.erase(item.native());
    if (!output.animationStarted && !output.pictures.empty())
        m_parts.animation.play(std::move(output.pictures));
    result.storeError = commit(output.journalNumber, JournalKind::feed, batch.mode, [&] {
        m_parts.ledger.record(result.done);
        result.unlocked = m_parts.progression.record(output.offerings, batch.mode);
    });
    registerUndo(result.done, batch.fromFinder);
    result.failures.insert(result.failures.begin(), batch.refused.begin(), batch.refused.end());
    tell(batch.dialogs, result);
    if (!result.failures.empty())
        batch.dialogs.report(intakeFailures(result.failures));
    if (!result.unlocked.empty())
        m_parts.progression.notify(result.unlocked);
    finish(batch.completion, std::move(result));
    end(batch.meter);
}

void Intake::registerUndo(const std::vector<Sacrifice>& done, bool fromFinder) {
    if (std::ranges::none_of(done, &Sacrifice::canRestore)) {
        disarm(fromFinder);
        return;
    }
    if (m_parts.undoStack == nullptr)
        return;
    auto items = restorable(done);
    auto name = sacrificeActionName(items.size());
    m_parts.undoStack->push(std::move(name), [this, items = std::move(items)] { restore(items); });
}

void Intake::restore(std::vector<Sacrifice> items, BatchCompletion completion,
                     const BatchOptions& options) {
    auto wanted = restorable(refreshed(std::move(items)));
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
    std::vector<Sacrifice> wanted;
    for (auto& item : refreshed(items)) {
        if (item.canRestore())
            wanted.push_back(std::move(item));
        else
            options.missing.push_back({item.name, disposalError(DisposalError::goneFromBin,
                                                                item.trashed.value_or(item.name))});
    }
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
    runBinJob(std::shared_ptr<BinBatch>(new BinBatch{kind, std::move(items), options.missing,
                                                     dialogsOf(options), begin(options),
                                                     std::move(completion), std::move(takenOut)}));
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
    m_parts.work.post([this, batch, recorded = lastRecorded()] {
        BinJob job(batch->kind, m_parts.directories, m_parts.journal, *batch->meter, recorded);
        const auto output =
            std::make_shared<BinJob::Output>(job.run(batch->items, *batch->takenOut));
        m_parts.main.post([this, batch, output] { completeBinJob(*batch, std::move(*output)); });
    });
}

void Intake::completeBinJob(BinBatch& batch, BinJob::Output output) {
    auto& result = output.result;
    const bool isPutBack = batch.kind == JournalKind::putBack;
    const std::set<Uuid> none;
    if (!batch.items.empty())
        result.storeError = commit(output.journalNumber, batch.kind, DisposeMode::bin, [&] {
            m_parts.ledger.mark(isPutBack ? output.done : none, output.lost,
                                isPutBack ? none : output.done);
        });
    result.failures.insert(result.failures.begin(), batch.missing.begin(), batch.missing.end());
    tell(batch.dialogs, result);
    if (!result.failures.empty())
        batch.dialogs.report(isPutBack ? putBackFailures(result.failures)
                                       : deleteFailures(result.failures));
    finish(batch.completion, std::move(result));
    end(batch.meter);
}

/// One transaction for all that a batch changes, its journal's number included: from then on the
/// journal has nothing to add, nor have those whose changes could not be stored before.
std::optional<Error> Intake::commit(std::optional<std::int64_t> journalNumber, JournalKind kind,
                                    DisposeMode mode, const std::function<void()>& changes) {
    const auto committed = m_parts.defaults.transaction([&] {
        changes();
        if (journalNumber)
            m_parts.defaults.assign(kRecordedKey, *journalNumber);
    });
    if (journalNumber)
        m_unsettled.push_back({*journalNumber, kind, mode});
    if (!committed)
        return committed.error();
    std::optional<Error> failure;
    for (const auto& unsettled : std::exchange(m_unsettled, {}))
        if (const auto closed =
                m_parts.journal.close(unsettled.journal, unsettled.kind, unsettled.mode);
            !closed)
            failure = closed.error();
    return failure;
}

void Intake::storeLeftOver() {
    if (!m_unsettled.empty())
        (void)commit(std::nullopt, JournalKind::feed, DisposeMode::bin, [] {});
}

std::shared_ptr<WorkMeter> Intake::begin(const BatchOptions& options) {
    auto meter = options.meter ? options.meter : std::make_shared<WorkMeter>();
    if (m_stopped)
        meter->stop = true;
    auto batches = m_batches.get();
    batches.push_back(meter);
    m_batches.set(std::move(batches));
    return meter;
}

void Intake::end(const std::shared_ptr<WorkMeter>& meter) {
    auto batches = m_batches.get();
    if (const auto found = std::ranges::find(batches, meter); found != batches.end())
        batches.erase(found);
    m_batches.set(std::move(batches));
}

void Intake::stop() {
    m_stopped = true;
    for (const auto& meter : m_batches.get())
        meter->stop = true;
}

Subscription Intake::subscribeToBatches(std::function<void(std::size_t)> subscriber) {
    return m_batches.subscribe([subscriber = std::move(subscriber)](const Meters& batches) {
        subscriber(batches.size());
    });
}

Dialogs& Intake::dialogsOf(const BatchOptions& options) const {
    return options.dialogs != nullptr ? *options.dialogs : m_parts.dialogs;
}

std::vector<Sacrifice> Intake::refreshed(std::vector<Sacrifice> items) const {
    const auto& recent = m_parts.ledger.recent.get();
    for (auto& item : items)
        if (const auto known = std::ranges::find(recent, item.id, &Sacrifice::id);
            known != recent.end())
            item = *known;
    return items;
}

std::int64_t Intake::lastRecorded() const {
    return m_parts.defaults.integer(kRecordedKey).value_or(0);
}

void Intake::disarm(bool fromFinder) {
    if (fromFinder)
        m_parts.undoKey.disarm();
}

} // namespace vexmoor
