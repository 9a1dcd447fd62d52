#include "IntentCheck.h"

#include "platform/Volume.h"

namespace vexmoor {

namespace {

bool liesAt(const Path& path, std::uint64_t inode) {
    const auto status = fileStatus(path);
    return status && status->identity.inode == inode;
}

bool isGone(const Path& path) {
    const auto status = fileStatus(path);
    return !status && status.error().code == std::errc::no_such_file_or_directory;
}

/// True if another volume is mounted in place of the item's.
bool isOtherVolume(const JournalEntry& entry) {
    const auto top = openFolder(*entry.volume);
    return !entry.fileSystem.empty() && (!top || volumeName(top->get()) != entry.fileSystem);
}

} // namespace

bool IntentCheck::mustWait(const JournalBatch& batch, const JournalEntry& entry) {
    if (const auto& place = entry.sacrifice.trashed)
        return !m_volumes.answers(Path(*place).parent_path()) ||
               TrashDirectory::isOnAbsentVolume(*place);
    if (batch.mode != DisposeMode::dissolve || !entry.volume)
        return false;
    if (!m_volumes.answers(*entry.volume))
        return true;
    const auto status = fileStatus(*entry.volume);
    return !status || !status->isMountPoint || isOtherVolume(entry);
}

bool IntentCheck::happened(const JournalBatch& batch, const JournalEntry& entry) {
    const auto& sacrifice = entry.sacrifice;
    const bool isDone = entry.outcome == JournalEntry::Outcome::done;
    if (entry.outcome == JournalEntry::Outcome::failed)
        return false;
    if (batch.mode == DisposeMode::dissolve)
        return isDone ? !liesAt(*sacrifice.original, entry.inode) : isGone(*sacrifice.original);
    const bool isInBin = liesAt(*sacrifice.trashed, entry.inode) ||
                         m_disposer.check(*sacrifice.trashed, sacrifice.binRecord());
    switch (batch.kind) {
    case JournalKind::feed:
        return isInBin || (isDone && !liesAt(*sacrifice.original, entry.inode));
    case JournalKind::putBack:
        return !isInBin && (isDone || liesAt(*entry.destination, entry.inode));
    case JournalKind::erase:
        return !isInBin && (isDone || isGone(*sacrifice.trashed));
    }
    return false;
}

} // namespace vexmoor
