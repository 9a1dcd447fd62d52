#include "DisposalJob.h"

namespace vexmoor {

DisposalJob::DisposalJob(Input input, Surroundings surroundings)
    : m_input(std::move(input)), m_surroundings(std::move(surroundings)),
      m_disposer(m_surroundings.directories, &m_surroundings.meter),
      m_journal(m_surroundings.journal, JournalKind::feed, m_input.mode, m_input.lastRecorded) {}

DisposalJob::Output DisposalJob::run() {
    m_output.result.done.reserve(m_input.items.size()); // growing would hold them twice
    m_output.offerings.reserve(m_input.items.size());
    for (const auto& path : m_input.items) {
        if (m_surroundings.meter.stop)
            m_output.result.untouched.push_back(path);
        else
            handle(path);
    }
    m_output.journalNumber = m_journal.end();
    return std::move(m_output);
}

void DisposalJob::handle(const Path& path) {
    auto picture = pictureOf(path);
    auto item = hold(path);
    if (!item) {
        m_output.result.failures.push_back(
            {displayText(lastComponent(path)), std::move(item).error()});
        return;
    }
    const std::int64_t bytes = m_disposer.size(*item);
    if (m_surroundings.meter.stop) {
        m_output.result.untouched.push_back(path);
        return;
    }
    auto sacrifice = disposeOf(*item, bytes);
    if (!sacrifice) {
        m_output.result.failures.push_back({displayText(item->name), std::move(sacrifice).error()});
        return;
    }
    m_output.result.done.push_back(*std::move(sacrifice));
    m_output.offerings.push_back({path, bytes, item->status.isFolder()});
    addPicture(std::move(picture));
}

/// Nothing but what the user said yes to.
Result<HeldItem> DisposalJob::hold(const Path& path) {
    auto item = m_disposer.hold(path);
    if (!item || m_input.seen.empty())
        return item;
    const auto seen = m_input.seen.find(path.native());
    if (seen == m_input.seen.end() || seen->second != item->status.identity)
        return disposalError(DisposalError::replaced);
    return item;
}

Result<Sacrifice> DisposalJob::disposeOf(const HeldItem& item, std::int64_t bytes) {
    JournalEntry entry;
    entry.isFolder = item.status.isFolder();
    entry.inode = item.status.identity.inode;
    auto& sacrifice = entry.sacrifice;
    sacrifice.id = Uuid::generate();
    sacrifice.name = displayText(item.name);
    sacrifice.bytes = bytes;
    sacrifice.mode = m_input.mode;
    sacrifice.date = m_surroundings.clock();
    sacrifice.original = item.path;
    if (m_input.mode == DisposeMode::dissolve)
        if (auto intended = m_journal.intend(entry); !intended)
            return std::move(intended).error();
    auto place =
        m_disposer.dispose(item, m_input.mode, bytes, sacrifice.date, [&](const Path& wanted) {
            entry.sacrifice.trashed = wanted;
            return m_journal.intend(entry);
        });
    m_journal.conclude(sacrifice.id, place.ok());
    if (!place)
        return std::move(place).error();
    sacrifice.trashed = *std::move(place);
    if (!sacrifice.trashed)
        sacrifice.original.reset();
    return std::move(sacrifice);
}

PicturePointer DisposalJob::pictureOf(const Path& path) {
    if (const auto found = m_input.thumbnails.find(path.native());
        found != m_input.thumbnails.end())
        return found->second;
    if (m_output.pictures.size() >= kPictured || m_picturesLoaded >= kPictured || !fileStatus(path))
        return nullptr;
    ++m_picturesLoaded;
    return m_surroundings.thumbnails.loadNow(path);
}

void DisposalJob::addPicture(PicturePointer picture) {
    if (m_output.pictures.size() >= kPictured)
        return;
    m_output.pictures.push_back(std::move(picture));
    if (m_output.pictures.size() == kPictured) {
        m_output.animationStarted = true;
        m_surroundings.startAnimation(m_output.pictures);
    }
}

} // namespace vexmoor
