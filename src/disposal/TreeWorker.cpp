#include "disposal/TreeWorker.h"

#include "platform/Processors.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <memory>

namespace vexmoor {

namespace {

// Two workers, with their start folders and the folder being opened, use fewer than 64 descriptors.
constexpr std::size_t kHandlesHeld = 24;
// Maximum attempts for a name that alternates between a folder and another kind of entry.
constexpr int kAttempts = 8;
// Less work than this ends before a second thread has started.
constexpr std::int64_t kStepsWorthAThread = 400;
constexpr std::int64_t kEntriesPerCount = 64;
// Maximum memory for waiting names before each level's batches get smaller.
constexpr std::size_t kWaitingBytes = std::size_t{1024} * 1024;
constexpr std::size_t kLeastBatchBytes = 512;
// The maximum batch for a folder with very many files. Batches grow, because larger ones read the
// same inode blocks less often.
constexpr std::size_t kMostBatchBytes = std::size_t{8} * 1024 * 1024;
// The minimum number of entries to share with the other worker.
constexpr std::size_t kEntriesWorthSharing = 64;

int descriptorOf(const SharedFolder& handle) {
    return handle ? handle->get() : -1;
}

} // namespace

std::size_t TreeLevel::lastNameStart() const {
    const std::size_t lastNul = waiting.size() - 1;
    const std::size_t nulBefore =
        lastNul == 0 ? std::string::npos : waiting.rfind('\0', lastNul - 1);
    return nulBefore == std::string::npos ? 0 : nulBefore + 1;
}

std::string TreeLevel::takeWaiting() {
    const std::size_t start = lastNameStart();
    std::string name = waiting.substr(start, waiting.size() - 1 - start);
    if (start == 0)
        waiting = std::string(); // also frees the memory
    else
        waiting.resize(start);
    return name;
}

std::string TreeLevel::takeHalfOfWaiting(bool mayTakeLast) {
    if (waiting.empty())
        return {};
    std::size_t end = waiting.find('\0', waiting.size() / 2) + 1;
    if (end == waiting.size() && !mayTakeLast)
        end = lastNameStart();
    std::string half = waiting.substr(0, end);
    waiting.erase(0, end);
    return half;
}

void TreeLevel::abandon() {
    waiting = std::string();
    unvisited = std::string();
    isRead = true;
}

void TreeWorker::work(TreeLevel level) {
    do {
        m_waitingBytes = level.waiting.size();
        push(std::move(level));
        while (!m_levels.empty())
            step();
        report();
    } while (m_walk.waitForWork(level));
}

void TreeWorker::work() {
    TreeLevel level;
    if (m_walk.waitForWork(level))
        work(std::move(level));
}

void TreeWorker::step() {
    TreeLevel& level = m_levels.back();
    if (m_walk.isStopped())
        level.abandon();
    shareIfWanted();
    if (!level.unvisited.empty())
        visitShared(level);
    else if (!level.waiting.empty())
        enterWaiting();
    else if (!level.isRead)
        readBatch(level);
    else
        leave();
}

/// Visits entries that are no folders immediately, so that only the names of subfolders are kept.
void TreeWorker::readBatch(TreeLevel& level) {
    const std::size_t bytes = batchBytes(level);
    const auto size = m_reader.read(level.handle->get(), bytes);
    if (!size && size.error().code.value() != ENOENT) // the folder was removed
        level.folder->readError = size.error().code.value();
    level.isRead = !size || *size == 0;
    if (level.isRead)
        return;
    level.hasMoreToRead = *size > bytes / 2;
    const TreePlace place{*level.folder, level.handle->get()};
    m_isInBatch = true;
    while (const FolderEntry* entry = m_walk.isStopped() ? nullptr : m_reader.next())
        visit(level, place, entry->name, entry->isFolder);
    m_isInBatch = false;
    if (m_walk.isStopped())
        return level.abandon();
    level.position = m_reader.position();
    if (level.hasMoreToRead && level.waiting.empty())
        level.batchBytes = std::min(2 * bytes, kMostBatchBytes);
}

void TreeWorker::visitShared(TreeLevel& level) {
    const std::string names = std::move(level.unvisited);
    level.unvisited = std::string();
    const TreePlace place{*level.folder, level.handle->get()};
    for (const char* name = names.data(); name < names.data() + names.size();
         name += std::strlen(name) + 1) {
        if (m_walk.isStopped())
            return level.abandon();
        visit(level, place, name, false);
    }
}

void TreeWorker::visit(TreeLevel& level, const TreePlace& place, const char* name, bool isFolder) {
    if (isFolder ||
        m_walk.m_visitor.visitEntry(place, name, m_tally) == TreeVisitor::Entry::isFolder) {
        level.waiting.append(name).push_back('\0');
        m_waitingBytes += std::strlen(name) + 1;
    }
    if (m_tally.entries + m_tally.removed >= kEntriesPerCount)
        report();
    countStep();
    shareIfWanted();
}

void TreeWorker::enterWaiting() {
    TreeLevel& level = m_levels.back();
    const std::string name = level.takeWaiting();
    m_waitingBytes -= name.size() + 1;
    countStep();
    const SharedFolder handle =
        level.handle; // a copy, because the level may be closed or moved below
    const TreePlace place{*level.folder, handle->get()};
    TreeVisitor& visitor = m_walk.m_visitor;
    int error = 0;
    for (int attempt = 0; attempt < kAttempts; ++attempt) {
        FileDescriptor descriptor = TreeWalk::openToRead(place.descriptor, name.c_str());
        error = descriptor ? 0 : errno;
        if (error == EACCES) {
            descriptor = visitor.openDenied(place, name.c_str());
            if (descriptor)
                error = 0;
        }
        if (error == 0)
            return enter(place, name, std::move(descriptor));
        if (error == ENOENT)
            return;
        if (error != ENOTDIR && error != ELOOP)
            break;
        if (visitor.visitEntry(place, name.c_str(), m_tally) == TreeVisitor::Entry::visited)
            return;
    }
    visitor.notEntered(place, name.c_str(), error, m_tally);
}

void TreeWorker::enter(const TreePlace& place, const std::string& name, FileDescriptor descriptor) {
    const auto status = fileStatus(descriptor.get(), "");
    if (!status || status->mountId != m_walk.m_mountId) {
        const int error = status ? EXDEV : status.error().code.value();
        return m_walk.m_visitor.notEntered(place, name.c_str(), error, m_tally);
    }
    place.folder.holders.fetch_add(1, std::memory_order_relaxed);
    auto folder = std::make_unique<TreeFolder>(&place.folder, name, status->identity);
    TreeLevel level;
    level.handle = std::make_shared<const FileDescriptor>(std::move(descriptor));
    level.folder = folder.release(); // leave() takes ownership again
    push(std::move(level));
}

/// Keeps the lowest level open, because the other worker may have reached it by a path other than
/// "..".
void TreeWorker::push(TreeLevel level) {
    m_levels.push_back(std::move(level));
    if (m_levels.size() > kHandlesHeld + 1)
        m_levels[m_levels.size() - 1 - kHandlesHeld].handle.reset();
}

/// Releases the top level's folder, and leaves it and its parents unless another worker holds them.
void TreeWorker::leave() {
    TreeLevel level = std::move(m_levels.back());
    m_levels.pop_back();
    if (!m_levels.empty())
        restore(m_levels.back(), level.handle);
    while (level.folder->holders.fetch_sub(1, std::memory_order_acq_rel) == 1) {
        TreeFolder* const parent = level.folder->parent;
        if (!parent)
            return;
        SharedFolder parentHandle;
        if (!m_walk.isStopped()) {
            parentHandle =
                m_levels.empty() ? openParent(*parent, level.handle) : m_levels.back().handle;
            if (finish(level, {*parent, descriptorOf(parentHandle)}) ==
                TreeVisitor::Folder::readAgain)
                return;
        }
        const std::unique_ptr<TreeFolder> left(
            level.folder); // created by enter() and referenced by no one else
        level = {parent, std::move(parentHandle)};
    }
}

TreeVisitor::Folder TreeWorker::finish(const TreeLevel& level, const TreePlace& parent) {
    const auto outcome =
        m_walk.m_visitor.leaveFolder(*level.folder, descriptorOf(level.handle), parent, m_tally);
    if (outcome == TreeVisitor::Folder::readAgain) {
        level.folder->holders = 1;
        ::lseek(level.handle->get(), 0, SEEK_SET);
        push({level.folder, level.handle});
    }
    return outcome;
}

/// Reopens a level whose descriptor was closed to stay within the limit.
void TreeWorker::restore(TreeLevel& level, const SharedFolder& child) {
    if (level.handle || m_walk.isStopped())
        return;
    level.handle = openParent(*level.folder, child);
    if (!level.handle) {
        m_waitingBytes -= level.waiting.size();
        level.abandon();
    } else if (level.isReadByBoth) {
        level.isRead = true; // the other worker reads the rest
    } else {
        ::lseek(level.handle->get(), level.position, SEEK_SET);
    }
}

/// Opens the folder through its child's "..", or by all names if the child was moved.
SharedFolder TreeWorker::openParent(const TreeFolder& folder, const SharedFolder& child) const {
    if (child && folder.parent) {
        SharedFolder opened = m_walk.openSame(child, "..", folder);
        if (opened)
            return opened;
    }
    return m_walk.openByNames(folder);
}

/// Offers work from the highest level, where most of it is likely: half of the waiting subfolders,
/// or the rest of a folder with very many entries.
void TreeWorker::shareIfWanted() {
    if (!m_walk.isWorkWanted())
        return;
    const std::size_t levels = m_levels.size();
    const std::size_t firstHeld = levels > kHandlesHeld ? levels - kHandlesHeld : 1;
    bool shared = share(m_levels.front());
    for (std::size_t i = firstHeld; i < levels && !shared; ++i)
        shared = share(m_levels[i]);
}

bool TreeWorker::share(TreeLevel& level) {
    if (!level.handle)
        return false;
    TreeLevel shared{level.folder, level.handle};
    const bool isTop = &level == &m_levels.back();
    shared.waiting = level.takeHalfOfWaiting(!isTop);
    m_waitingBytes -= shared.waiting.size();
    if (!shared.waiting.empty()) {
        shared.isRead = true;
    } else if (isTop && m_isInBatch && m_reader.left() >= kEntriesWorthSharing) {
        shared.unvisited = m_reader.takeSecondHalf();
        shared.isRead = true;
        if (shared.unvisited.empty())
            return false;
    } else if (level.hasMoreToRead && !level.isRead) {
        level.hasMoreToRead = false;
        level.isReadByBoth = shared.isReadByBoth = true;
        shared.batchBytes = level.batchBytes;
    } else {
        return false;
    }
    level.folder->holders.fetch_add(1, std::memory_order_relaxed);
    m_walk.handOver(std::move(shared));
    return true;
}

std::size_t TreeWorker::batchBytes(const TreeLevel& level) const {
    const std::size_t free = kWaitingBytes - std::min(kWaitingBytes, m_waitingBytes);
    const std::size_t usual = std::clamp(free / 8, kLeastBatchBytes, FolderReader::kUsualBytes);
    const std::size_t most = m_waitingBytes == 0 ? kMostBatchBytes : free;
    return std::max(usual, std::min(most, level.batchBytes));
}

void TreeWorker::countStep() {
    if (++m_steps % kStepsWorthAThread == 0 && !m_hasOffered && hasIdleProcessor()) {
        m_hasOffered = true;
        m_walk.startSecondWorker();
    }
}

void TreeWorker::report() {
    m_walk.count(m_tally);
    m_tally = {};
}

} // namespace vexmoor
