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

// How often a folder is read in which more is found than is known to stay: some file systems skip
// entries while others are removed, and other programs add some.
constexpr int kMaxReadings = 4;

/// Gives us the permissions we lack on a folder of ours; false where that changes nothing. The
/// descriptor may be one that only names the folder (which fchmod refuses).
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

/// One more entry of the folder stays.
void stay(TreeFolder& folder) {
    folder.stayingHere.fetch_add(1, std::memory_order_relaxed);
    folder.stayingInAll.fetch_add(1, std::memory_order_relaxed);
}

class RemovalVisitor : public TreeVisitor {
  public:
    explicit RemovalVisitor(std::vector<Error>& failures) : m_failures(failures) {}

    Entry visitEntry(const TreePlace& place, const char* name, TreeTally& tally) override {
        if (isTop(place)) { // a folder when it was asked for
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

/// Never on the folder in which the tree stands: that is not ours to change.
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
        m_failures.push_back(std::move(failure)); // once, however often the folder is read
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

/// An empty folder can be removed without being read.
void RemovalVisitor::notEntered(const TreePlace& place, const char* name, int error,
                                TreeTally& tally) {
    const bool isRemoved = error == EACCES && unlink(place, name, AT_REMOVEDIR) == 0;
    account(place, name, isRemoved ? 0 : error, tally);
}

/// What has taken the place of a folder inside goes with the tree that the user named. At the top
/// it is another item, which nobody named: ENOTDIR.
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
    int error = parent.descriptor < 0 ? ESTALE : ENOTEMPTY; // not to be found again, or not empty
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
        // Another folder has taken its place: the parent, not being empty, is read again.
        if (found == 0 && folder.readError == 0 && parent.folder.parent &&
            parent.folder.readings < kMaxReadings)
            return Folder::left;
    }
    parent.folder.stayingInAll.fetch_add(folder.stayingInAll, std::memory_order_relaxed);
    if (error == ENOTEMPTY && folder.readError != 0) {
        error = folder.readError;
    } else if (folder.stayingHere > 0) { // which is no cause of its own
        stay(parent.folder);
        return Folder::left;
    }
    account(parent, folder.name.c_str(), error, tally);
    return Folder::left;
}

/// One component that names an entry: nothing that would lead elsewhere.
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
