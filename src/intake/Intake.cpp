#include "Intake.h"

#include "intake/Texts.h"

#include <algorithm>

namespace vexmoor {

struct Intake::Batch {
    std::vector<StoredPath> items;
    std::vector<Failure> refused;
    DisposeMode mode = DisposeMode::bin;
    bool fromFinder = false;
    std::map<std::string, PicturePointer> thumbnails;
    std::size_t thumbnailsAwaited = 0;
    BatchCompletion completion;
};

namespace {

void finish(const BatchCompletion& completion, BatchResult result) {
    if (completion)
        completion(std::move(result));
}

std::vector<Sacrifice> restorable(std::vector<Sacrifice> items) {
    std::erase_if(items, [](const Sacrifice& item) { return !item.canRestore(); });
    return items;
}

} // namespace

Intake::Intake(Parts parts) : m_parts(std::move(parts)) {}

void Intake::consume(const std::vector<Path>& items, bool fromFinder, BatchCompletion completion) {
    consume(items, fromFinder, m_parts.settings.mode.get(), std::move(completion));
}

void Intake::consume(const std::vector<Path>& items, bool fromFinder, DisposeMode mode,
                     BatchCompletion completion) {
    const auto batch = std::make_shared<Batch>();
    batch->mode = mode;
    batch->fromFinder = fromFinder;
    batch->completion = std::move(completion);
    std::set<std::string> seen;
    for (const auto& item : items) {
        if (endsInDots(item)) {
            batch->refused.push_back(
                {displayText(item.native()), disposalError(DisposalError::isDots)});
            continue;
        }
        const Path path = standardized(item);
        if (!m_inFlight.contains(path.native()) && seen.insert(path.native()).second)
            batch->items.emplace_back(path);
    }
    if (batch->items.empty()) {
        if (!batch->refused.empty())
            complete(*batch, {});
        else
            finish(batch->completion, {});
        return;
    }
    if (mode == DisposeMode::dissolve) {
        const bool declined =
            m_parts.settings.confirmDissolve.get() && !confirmDissolve(batch->items.size());
        disarm(fromFinder); // what is dissolved can't be undone, what was declined needs no undo
        if (declined) {
            BatchResult result;
            result.declined = true;
            finish(batch->completion, std::move(result));
            return;
        }
    }
    m_inFlight.merge(seen);
    if (m_parts.settings.sound.get())
        m_parts.sizzle.play();
    prefetch(batch);
}

bool Intake::confirmDissolve(std::size_t count) {
    const auto answer = m_parts.dialogs.ask(dissolveQuestion(count));
    if (answer.suppressed)
        m_parts.settings.confirmDissolve.set(false);
    return answer.confirmed;
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
        DisposalJob job({batch->items, batch->mode, std::move(batch->thumbnails), recorded},
                        {m_parts.directories, m_parts.journal, m_parts.thumbnails, m_meter,
                         m_parts.clock, [this](std::vector<PicturePointer> pictures) {
                             m_parts.main.post([this, pictures = std::move(pictures)] {
                                 m_parts.animation.play(pictures);
                             });
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
    if (result.storeError)
        m_parts.dialogs.report(storeFailure(*result.storeError));
    if (!result.failures.empty())
        m_parts.dialogs.report(intakeFailures(result.failures));
    if (!result.unlocked.empty())
        m_parts.progression.notify(result.unlocked);
    finish(batch.completion, std::move(result));
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

void Intake::restore(std::vector<Sacrifice> items, BatchCompletion completion) {
    auto wanted = restorable(refreshed(std::move(items)));
    if (wanted.empty()) {
        m_parts.dialogs.beep();
        finish(completion, {});
        return;
    }
    m_parts.undoKey.disarm();
    runBinJob(JournalKind::putBack, std::move(wanted), std::move(completion));
}

void Intake::deleteImmediately(std::vector<Sacrifice> items, BatchCompletion completion) {
    auto wanted = restorable(std::move(items));
    if (wanted.empty()) {
        m_parts.dialogs.beep();
        finish(completion, {});
        return;
    }
    if (!m_parts.dialogs.ask(deleteQuestion(wanted)).confirmed) {
        BatchResult result;
        result.declined = true;
        finish(completion, std::move(result));
        return;
    }
    runBinJob(JournalKind::erase, std::move(wanted), std::move(completion));
}

void Intake::runBinJob(JournalKind kind, std::vector<Sacrifice> items, BatchCompletion completion) {
    m_parts.work.post([this, kind, items = std::move(items), completion = std::move(completion),
                       recorded = lastRecorded()] {
        BinJob job(kind, m_parts.directories, m_parts.journal, m_meter, recorded);
        const auto output = std::make_shared<BinJob::Output>(job.run(items));
        m_parts.main.post([this, kind, completion, output] {
            completeBinJob(kind, std::move(*output), completion);
        });
    });
}

void Intake::completeBinJob(JournalKind kind, BinJob::Output output,
                            const BatchCompletion& completion) {
    auto& result = output.result;
    const bool isPutBack = kind == JournalKind::putBack;
    const std::set<Uuid> none;
    result.storeError = commit(output.journalNumber, kind, DisposeMode::bin, [&] {
        m_parts.ledger.mark(isPutBack ? output.done : none, output.lost,
                            isPutBack ? none : output.done);
    });
    if (result.storeError)
        m_parts.dialogs.report(storeFailure(*result.storeError));
    if (!result.failures.empty())
        m_parts.dialogs.report(isPutBack ? putBackFailures(result.failures)
                                         : deleteFailures(result.failures));
    finish(completion, std::move(result));
}

/// One transaction for all that a batch changes, its journal's number included: from then on the
/// journal has nothing to add.
std::optional<Error> Intake::commit(std::optional<std::int64_t> journalNumber, JournalKind kind,
                                    DisposeMode mode, const std::function<void()>& changes) {
    const auto committed = m_parts.defaults.transaction([&] {
        changes();
        if (journalNumber)
            m_parts.defaults.assign(kRecordedKey, *journalNumber);
    });
    if (!committed)
        return committed.error();
    if (journalNumber)
        if (const auto closed = m_parts.journal.close(*journalNumber, kind, mode); !closed)
            return closed.error();
    return std::nullopt;
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
