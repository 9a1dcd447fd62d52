#include "disposal/TreeWalk.h"

#include "base/Saturated.h"
#include "disposal/TreeWorker.h"

#include <fcntl.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <system_error>
#include <utility>
#include <vector>

namespace vexmoor {

namespace {

/// Blocks signals, so that the program's other threads receive them.
class SignalsBlocked {
  public:
    SignalsBlocked() {
        sigset_t all;
        sigfillset(&all);
        pthread_sigmask(SIG_SETMASK, &all, &m_before);
    }
    ~SignalsBlocked() { pthread_sigmask(SIG_SETMASK, &m_before, nullptr); }
    SignalsBlocked(const SignalsBlocked&) = delete;
    SignalsBlocked& operator=(const SignalsBlocked&) = delete;

  private:
    sigset_t m_before{};
};

/// Returns the folders from the top of the tree down to `folder`, inclusive.
std::vector<const TreeFolder*> wayDown(const TreeFolder& folder) {
    std::vector<const TreeFolder*> way;
    for (const TreeFolder* at = &folder; at->parent; at = at->parent)
        way.push_back(at);
    std::reverse(way.begin(), way.end());
    return way;
}

} // namespace

Path TreeFolder::pathOf(const std::string& entry) const {
    std::string path;
    for (const TreeFolder* folder : wayDown(*this))
        path += folder->name + '/';
    return path + entry;
}

TreeWalk::TreeWalk(TreeVisitor& visitor, std::uint64_t mountId, WorkMeter* meter)
    : m_visitor(visitor), m_mountId(mountId), m_meter(meter) {}

TreeWalk::~TreeWalk() = default;

Result<TreeWalk::Outcome> TreeWalk::run(int directory, const std::string& name) {
    auto opened = openFolder(directory, ".");
    if (!opened)
        return opened.error();
    m_directory = std::make_shared<const FileDescriptor>(std::move(opened).value());
    TreeFolder above(nullptr, {}, {});
    TreeLevel level{&above, m_directory, name + '\0'};
    level.isRead = true;
    TreeWorker(*this).work(std::move(level));
    if (m_secondWorker.joinable())
        m_secondWorker.join();
    return Outcome{
        {m_done.entries, m_done.bytes, m_done.removed}, above.stayingInAll, m_wasStopped};
}

void TreeWalk::count(const TreeTally& done) {
    for (WorkMeter* meter : {&m_done, m_meter}) {
        if (!meter)
            continue;
        meter->entries.fetch_add(done.entries, std::memory_order_relaxed);
        addSaturated(meter->bytes, done.bytes);
        meter->removed.fetch_add(done.removed, std::memory_order_relaxed);
    }
}

bool TreeWalk::isStopped() {
    if (!m_meter || !m_meter->stop.load(std::memory_order_relaxed))
        return false;
    m_wasStopped.store(true, std::memory_order_relaxed);
    return true;
}

/// Without a second thread, one worker does everything.
void TreeWalk::startSecondWorker() {
    const std::lock_guard lock(m_mutex);
    if (m_workers > 1)
        return;
    const SignalsBlocked blocked;
    try {
        m_secondWorker = std::thread([this] { TreeWorker(*this).work(); });
        ++m_workers;
    } catch (const std::system_error&) {
        return;
    }
}

/// Waits for a level to process. Returns false if there is no work left.
bool TreeWalk::waitForWork(TreeLevel& level) {
    std::unique_lock lock(m_mutex);
    if (++m_idleWorkers == m_workers) {
        m_isDone = true;
        m_changed.notify_all();
        return false;
    }
    m_isWorkWanted = true;
    m_changed.wait(lock, [this] { return m_isDone || m_sharedLevel; });
    if (m_isDone)
        return false;
    level = std::move(*m_sharedLevel);
    m_sharedLevel.reset();
    return true;
}

void TreeWalk::handOver(TreeLevel level) {
    const std::lock_guard lock(m_mutex);
    m_sharedLevel = std::make_unique<TreeLevel>(std::move(level));
    m_isWorkWanted = false;
    --m_idleWorkers;
    m_changed.notify_one();
}

FileDescriptor TreeWalk::openToRead(int directory, const char* name) {
    return FileDescriptor(
        ::openat(directory, name, O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
}

/// Returns null if the folder has been replaced.
SharedFolder TreeWalk::openSame(const SharedFolder& directory, const char* name,
                                const TreeFolder& folder) const {
    FileDescriptor descriptor = openToRead(directory->get(), name);
    if (!descriptor)
        return nullptr;
    const auto status = fileStatus(descriptor.get(), "");
    if (!status || status->identity != folder.identity || status->mountId != m_mountId)
        return nullptr;
    return std::make_shared<const FileDescriptor>(std::move(descriptor));
}

SharedFolder TreeWalk::openByNames(const TreeFolder& folder) const {
    SharedFolder at = m_directory;
    for (const TreeFolder* next : wayDown(folder)) {
        if (at)
            at = openSame(at, next->name.c_str(), *next);
    }
    return at;
}

} // namespace vexmoor
