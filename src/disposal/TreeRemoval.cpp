#include "disposal/TreeRemoval.h"

#include "base/Text.h"
#include "disposal/DisposalError.h"
#include "disposal/TreeWalk.h"
#include "platform/FolderReader.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <mutex>
#include <string_view>

namespace vexmoor {

namespace {

// Maximum number of passes over a folder that still has unexpected entries: some file systems skip
// entries during removal, and other programs add some.
constexpr int kMaxReadings = 4;

/// Adds missing permissions on a folder that the user owns. Returns false if nothing changed. Works
/// on O_PATH descriptors, which fchmod rejects.
bool grantOurselves(int descriptor) {
    const auto status = fileStatus(descriptor, "");
    if (!status || !status->isFolder() || status->owner != ::geteuid() ||
        (status->mode & S_IRWXU) == S_IRWXU)
        return false;
    char path[64];
    std::snprintf(path, sizeof path, "/proc/self/fd/%d", descriptor);
    return ::chmod(path, (status->mode | S_IRWXU) & 07777) == 0;
}

std::int64_t countEntries(int folder) {
    FolderReader reader;
    std::int64_t count = 0;
    ::lseek(folder, 0, SEEK_SET);
    for (auto size = reader.read(folder); size && *size > 0; size = reader.read(folder)) {
        while (reader.next())
            ++count;
    }
    return count;
}

/// Counts one more remaining entry.
void stay(TreeFolder& folder) {
    folder.stayingHere.fetch_add(1, std::memory_order_relaxed);
    folder.stayingInAll.fetch_add(1, std::memory_order_relaxed);
}

class RemovalVisitor : public TreeVisitor {
  public:
    explicit RemovalVisitor(std::vector<Error>& failures) : m_failures(failures) {}

    Entry visitEntry(const TreePlace& place, const char* name, TreeTally& tally) override {
        if (isTop(place)) { // it was a folder when the caller checked
            failForReplacement(place, name);
            return Entry::visited;
        }
        const int error = unlink(place, name, 0);
        if (error == EISDIR)
            return Entry::isFolder;
        account(place, name, error, tally);
        return Entry::visited;
    }

    FileDescriptor openDenied(const TreePlace& place, const char* name) override;
    void notEntered(const TreePlace& place, const char* name, int error, TreeTally& tally) override;
    Folder leaveFolder(TreeFolder& folder, int descriptor, const TreePlace& parent,
                       TreeTally& tally) override;

  private:
    static int unlink(const TreePlace& place, const char* name, int flags);
    static bool grantInside(const TreePlace& place);
    static bool isTop(const TreePlace& place) { return place.folder.parent == nullptr; }
    static int removeEmpty(const TreeFolder& folder, const TreePlace& parent);
    void failForReplacement(const TreePlace& place, const char* name);
    void account(const TreePlace& place, const char* name, int error, TreeTally& tally);

    std::mutex m_mutex;
    std::vector<Error>& m_failures; // guarded by the mutex
};

/// Never changes the permissions of the folder that contains the tree.
bool RemovalVisitor::grantInside(const TreePlace& place) {
    return !isTop(place) && grantOurselves(place.descriptor);
}

int RemovalVisitor::unlink(const TreePlace& place, const char* name, int flags) {
    int error = 0;
    do {
        error = ::unlinkat(place.descriptor, name, flags) == 0 ? 0 : errno;
    } while (error == EINTR || (error == EACCES && grantInside(place)));
    return error;
}

void RemovalVisitor::account(const TreePlace& place, const char* name, int error,
                             TreeTally& tally) {
    if (error == 0)
        ++tally.removed;
    if (error == 0 || error == ENOENT)
        return;
    stay(place.folder);
    const std::lock_guard lock(m_mutex);
    if (m_failures.size() >= RemovalReport::kMaxFailures)
        return;
    const char* operation = error == EXDEV ? marked("enter the mount") : marked("remove");
    Error failure = Error::fromErrno(error, operation, place.folder.pathOf(name));
    if (std::find(m_failures.begin(), m_failures.end(), failure) == m_failures.end())
        m_failures.push_back(std::move(failure)); // once, even if the folder is read several times
}

FileDescriptor RemovalVisitor::openDenied(const TreePlace& place, const char* name) {
    auto named = openFolderItself(place.descriptor, name);
    if (!named && grantInside(place))
        named = openFolderItself(place.descriptor, name);
    if (!named)
        return {};
    grantOurselves(named->get());
    return FileDescriptor(
        ::openat(named->get(), ".", O_RDONLY | O_DIRECTORY | O_NONBLOCK | O_CLOEXEC));
}

/// An empty folder can be removed without reading it.
void RemovalVisitor::notEntered(const TreePlace& place, const char* name, int error,
                                TreeTally& tally) {
    const bool isRemoved = error == EACCES && unlink(place, name, AT_REMOVEDIR) == 0;
    account(place, name, isRemoved ? 0 : error, tally);
}

/// Inside the tree, whatever replaced a folder belongs to the tree and is removed. At the top it is
/// a different item, so this returns ENOTDIR.
int RemovalVisitor::removeEmpty(const TreeFolder& folder, const TreePlace& parent) {
    const char* const name = folder.name.c_str();
    if (isTop(parent)) {
        const auto status = fileStatus(parent.descriptor, name);
        if (status && status->identity != folder.identity)
            return ENOTDIR;
        return unlink(parent, name, AT_REMOVEDIR);
    }
    const int error = unlink(parent, name, AT_REMOVEDIR);
    return error == ENOTDIR ? unlink(parent, name, 0) : error;
}

void RemovalVisitor::failForReplacement(const TreePlace& place, const char* name) {
    stay(place.folder);
    const std::lock_guard lock(m_mutex);
    m_failures.push_back(disposalError(DisposalError::replaced, name));
}

TreeVisitor::Folder RemovalVisitor::leaveFolder(TreeFolder& folder, int descriptor,
                                                const TreePlace& parent, TreeTally& tally) {
    int error = parent.descriptor < 0 ? ESTALE : ENOTEMPTY; // lost or not empty
    if (error == ENOTEMPTY && folder.stayingHere == 0) {
        error = removeEmpty(folder, parent);
        if (error == ENOTDIR) {
            failForReplacement(parent, folder.name.c_str());
            return Folder::left;
        }
    }
    if (error == ENOTEMPTY && descriptor >= 0) {
        const std::int64_t found = countEntries(descriptor);
        if (found != folder.stayingHere && folder.readings < kMaxReadings) {
            ++folder.readings;
            folder.stayingHere = folder.stayingInAll = 0;
            return Folder::readAgain;
        }
        // Another folder has replaced it: read the parent again, since it is not empty.
        if (found == 0 && folder.readError == 0 && parent.folder.parent &&
            parent.folder.readings < kMaxReadings)
            return Folder::left;
    }
    parent.folder.stayingInAll.fetch_add(folder.stayingInAll, std::memory_order_relaxed);
    if (error == ENOTEMPTY && folder.readError != 0) {
        error = folder.readError;
    } else if (folder.stayingHere > 0) { // not a cause itself
        stay(parent.folder);
        return Folder::left;
    }
    account(parent, folder.name.c_str(), error, tally);
    return Folder::left;
}

/// True if the text names a directory entry, and not "." or "..".
bool isEntryName(std::string_view name) {
    return !name.empty() && name != "." && name != ".." && name.find('/') == std::string_view::npos;
}

} // namespace

RemovalReport removeTree(int directory, const char* name, WorkMeter* meter) {
    RemovalReport report;
    if (meter && meter->stop) {
        report.stopped = true;
        return report;
    }
    const auto failWith = [&](int error) {
        report.failures.push_back(Error::fromErrno(error, "remove", name));
        report.remaining = error == ENOENT ? 0 : 1;
        return report;
    };
    if (!isEntryName(name))
        return failWith(EINVAL);
    if (::unlinkat(directory, name, 0) == 0) {
        report.removed = 1;
        if (meter)
            meter->removed.fetch_add(1, std::memory_order_relaxed);
        return report;
    }
    if (errno != EISDIR)
        return failWith(errno);
    const auto place = fileStatus(directory, "");
    if (!place)
        return failWith(place.error().code.value());
    RemovalVisitor visitor(report.failures);
    const auto outcome = TreeWalk(visitor, place->mountId, meter).run(directory, name);
    if (!outcome)
        return failWith(outcome.error().code.value());
    report.removed = outcome->tally.removed;
    report.remaining = outcome->staying;
    report.stopped = outcome->stopped;
    return report;
}

} // namespace vexmoor
