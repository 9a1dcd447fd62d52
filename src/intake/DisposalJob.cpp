#include "DisposalJob.h"

namespace vexmoor {

DisposalJob::DisposalJob(Input input, Surroundings surroundings)
    : m_input(std::move(input)), m_surroundings(std::move(surroundings)),
      m_disposer(m_surroundings.directories, &m_surroundings.meter) {}

DisposalJob::Output DisposalJob::run() {
    m_output.result.done.reserve(m_input.items.size()); // growing would hold them twice
    m_output.offerings.reserve(m_input.items.size());
    for (const auto& path : m_input.items) {
        if (m_surroundings.meter.stop)
            m_output.result.untouched.push_back(path);
        else
            handle(path);
    }
    if (m_writer) {
        m_output.journalNumber = m_writer->number();
        // The last outcome only saves a look at the disk, should this process die before the
        // commit.
        (void)m_writer->flush();
    }
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
    auto entry = disposeOf(*item, bytes);
    if (!entry) {
        m_output.result.failures.push_back({displayText(item->name), std::move(entry).error()});
        return;
    }
    m_output.offerings.push_back({path, entry->sacrifice.bytes, entry->isFolder});
    m_output.result.done.push_back(std::move(entry->sacrifice));
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

Result<JournalEntry> DisposalJob::disposeOf(const HeldItem& item, std::int64_t bytes) {
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
        if (auto intended = intend(entry); !intended)
            return std::move(intended).error();
    auto disposed =
        m_disposer.dispose(item, m_input.mode, bytes, sacrifice.date, [&](const Path& wanted) {
            entry.sacrifice.trashed = wanted;
            return intend(entry);
        });
    if (m_writer)
        m_writer->conclude(sacrifice.id, disposed.ok());
    if (!disposed)
        return std::move(disposed).error();
    sacrifice.bytes = disposed->bytes;
    entry.isFolder = disposed->isFolder;
    if (disposed->binned) {
        sacrifice.trashed = disposed->binned->place;
        sacrifice.facts = disposed->binned->facts;
    } else {
        sacrifice.original.reset();
    }
    return entry;
}

Result<void> DisposalJob::intend(const JournalEntry& entry) {
    if (!m_writer) {
        auto begun =
            m_surroundings.journal.begin(JournalKind::feed, m_input.mode, m_input.lastRecorded);
        if (!begun)
            return std::move(begun).error();
        m_writer = *std::move(begun);
    }
    return m_writer->intend(entry);
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
