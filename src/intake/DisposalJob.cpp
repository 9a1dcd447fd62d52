#include "DisposalJob.h"

namespace vexmoor {

DisposalJob::DisposalJob(Input input, Surroundings surroundings)
    : GroupedWork(BatchJournal(surroundings.journal, JournalKind::feed, input.mode, input.start),
                  surroundings.meter),
      m_input(std::move(input)), m_surroundings(std::move(surroundings)),
      m_disposer(m_surroundings.directories, &m_surroundings.meter) {}

DisposalJob::Output DisposalJob::run() {
    m_output.result.done.reserve(m_input.items.size()); // reallocation would need twice the memory
    m_output.offerings.reserve(m_input.items.size());
    work(m_input.items.size());
    m_output.journal = m_journal.end();
    return std::move(m_output);
}

std::optional<FedItem> DisposalJob::prepare(std::size_t number) {
    const Path path = m_input.items[number];
    auto picture = pictureOf(path);
    auto held = hold(path);
    if (!held) {
        m_output.result.failures.push_back(
            {displayText(lastComponent(path)), std::move(held).error(), path});
        return std::nullopt;
    }
    const std::int64_t bytes = m_disposer.size(*held);
    if (m_meter.stop) {
        leave(number);
        return std::nullopt;
    }
    FedItem item{std::move(picture), *std::move(held), {}};
    item.entry.isFolder = item.held.status.isFolder();
    item.entry.inode = item.held.status.identity.inode;
    auto& sacrifice = item.entry.sacrifice;
    sacrifice.id = Uuid::generate();
    sacrifice.name = displayText(item.held.name);
    sacrifice.bytes = bytes;
    sacrifice.mode = m_input.mode;
    sacrifice.date = m_surroundings.clock();
    sacrifice.original = item.held.path;
    sacrifice.facts = ItemFacts::of(item.held.status, true);
    if (auto intended = intend(item); !intended) {
        fail(item, intended.error());
        return std::nullopt;
    }
    limitFolders(item.held);
    ++m_picturesAwaited;
    return item;
}

/// Adds the path in the Bin that the item will probably get.
Result<void> DisposalJob::intend(FedItem& item) {
    if (m_input.mode == DisposeMode::dissolve) {
        const auto& volume = m_disposer.volumeOf(item.held);
        item.entry.volume = volume.mountPoint;
        item.entry.fileSystem = volume.name;
        return m_journal.intend(item.entry);
    }
    auto place = m_disposer.expectedPlace(item.held);
    if (!place)
        return std::move(place).error();
    item.entry.sacrifice.trashed = *std::move(place);
    return m_journal.intend(item.entry);
}

/// Each held folder uses a descriptor.
void DisposalJob::limitFolders(const HeldItem& item) {
    constexpr std::size_t kMostFolders = 64;
    if (m_lastFolder.lock() == item.parent)
        return;
    m_lastFolder = item.parent;
    if (++m_foldersHeld % kMostFolders == 0)
        endGroup();
}

/// Fails if the file is not the one that the user confirmed.
Result<HeldItem> DisposalJob::hold(const Path& path) {
    auto item = m_disposer.hold(path);
    if (!item || m_input.seen.empty())
        return item;
    const auto seen = m_input.seen.find(path.native());
    if (seen == m_input.seen.end() || seen->second != item->status.identity)
        return disposalError(DisposalError::replaced);
    return item;
}

Result<Disposer::Disposed> DisposalJob::dispose(FedItem& item) {
    auto& sacrifice = item.entry.sacrifice;
    if (m_input.mode == DisposeMode::dissolve && item.entry.isFolder)
        m_journal.begin(sacrifice.id);
    return m_disposer.dispose(item.held, m_input.mode, sacrifice.bytes, sacrifice.date,
                              [&](const Path& wanted) {
                                  if (*sacrifice.trashed == wanted)
                                      return Result<void>();
                                  sacrifice.trashed = wanted;
                                  return m_journal.intendNow(item.entry);
                              });
}

void DisposalJob::carryOut(FedItem& item) {
    --m_picturesAwaited;
    auto disposed = dispose(item);
    auto& sacrifice = item.entry.sacrifice;
    m_journal.conclude(sacrifice.id, disposed ? std::nullopt : std::optional(disposed.error()));
    if (!disposed) {
        fail(item, disposed.error());
        return;
    }
    sacrifice.bytes = disposed->bytes;
    m_output.offerings.push_back({item.held.path, disposed->bytes, disposed->isFolder});
    if (disposed->binned) {
        sacrifice.trashed = disposed->binned->place;
        sacrifice.facts = disposed->binned->facts;
    } else {
        sacrifice.original.reset();
    }
    m_output.result.done.push_back(std::move(sacrifice));
    addPicture(std::move(item.picture));
}

void DisposalJob::fail(const FedItem& item, const Error& error) {
    m_output.result.failures.push_back({displayText(item.held.name), error, item.held.path});
}

void DisposalJob::leave(std::size_t number) {
    m_output.result.untouched.push_back(m_input.items[number]);
}

void DisposalJob::leave(const FedItem& item) {
    m_output.result.untouched.push_back(item.held.path);
}

PicturePointer DisposalJob::pictureOf(const Path& path) {
    if (const auto found = m_input.thumbnails.find(path.native());
        found != m_input.thumbnails.end())
        return found->second;
    if (m_output.pictures.size() + m_picturesAwaited >= kPictured ||
        m_picturesLoaded >= kPictured || !fileStatus(path))
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
