#pragma once

#include "base/FileDescriptor.h"
#include "disposal/WorkMeter.h"
#include "platform/FileManager.h"

#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <memory>
#include <mutex>
#include <string>
#include <thread>

namespace vexmoor {

class TreeWorker;
struct TreeLevel;

/// A shared folder descriptor, closed with its last owner.
using SharedFolder = std::shared_ptr<const FileDescriptor>;

/// A folder that has been entered and not left yet. Held by its readers and its entered subfolders;
/// releasing the last reference leaves it.
struct TreeFolder {
    TreeFolder(TreeFolder* theParent, std::string theName, const FileIdentity& theIdentity)
        : parent(theParent), name(std::move(theName)), identity(theIdentity) {}

    TreeFolder* const parent; ///< null for the folder that contains the tree
    const std::string name;
    const FileIdentity identity;
    std::atomic<int> holders{1};

    // The members below are for the visitor.
    std::atomic<int> readError{0};             ///< why reading ended early
    std::atomic<std::int64_t> stayingHere{0};  ///< remaining entries of this folder
    std::atomic<std::int64_t> stayingInAll{0}; ///< remaining entries including subfolders
    int readings = 1;                          ///< number of passes; changed on leaving

    /// Returns the entry's path, starting with the name of the tree.
    [[nodiscard]] Path pathOf(const std::string& entry) const;
};

/// The location of an entry: its folder and the folder's open descriptor.
struct TreePlace {
    TreeFolder& folder;
    int descriptor;
};

/// The work of one worker.
struct TreeTally {
    std::int64_t entries = 0; ///< number of measured entries
    std::int64_t bytes = 0;   ///< bytes of the measured entries
    std::int64_t removed = 0;
};

/// Processes a tree's entries. Called from two threads concurrently, but once per entry.
class TreeVisitor {
  public:
    enum class Entry { visited, isFolder };
    enum class Folder { left, readAgain };

    virtual ~TreeVisitor() = default;

    /// Visits an entry that does not seem to be a folder. Returning isFolder makes the walk enter
    /// it.
    virtual Entry visitEntry(const TreePlace& place, const char* name, TreeTally& tally) = 0;

    /// Returns a descriptor for a folder whose access was denied, if possible.
    virtual FileDescriptor openDenied(const TreePlace& place, const char* name) = 0;

    /// Called for a folder that cannot be entered, with EXDEV if it is on another file system.
    virtual void notEntered(const TreePlace& place, const char* name, int error,
                            TreeTally& tally) = 0;

    /// Called after all entries of the folder. `descriptor` is the folder's own (-1 if it was moved
    /// and lost); `parent` locates its name (its descriptor can also be -1).
    virtual Folder leaveFolder(TreeFolder& folder, int descriptor, const TreePlace& parent,
                               TreeTally& tally) = 0;
};

/// Visits all entries of a tree, children before their folder, with a second thread if there is
/// enough work. Uses a bounded number of open descriptors at any depth, follows no links and stays
/// on one mount; its memory does not grow with the number of entries. One walk per instance.
class TreeWalk {
  public:
    struct Outcome {
        TreeTally tally;
        std::int64_t staying = 0; ///< sum of stayingInAll
        bool stopped = false;     ///< stopped early by the meter
    };

    /// `mountId` is the mount to stay on. The meter may be null.
    TreeWalk(TreeVisitor& visitor, std::uint64_t mountId, WorkMeter* meter);
    ~TreeWalk();

    /// Visits `name` and everything below. Blocks until done. Fails only if `directory` is not a
    /// directory.
    Result<Outcome> run(int directory, const std::string& name);

  private:
    friend class TreeWorker;

    void count(const TreeTally& done);
    bool isStopped();
    void startSecondWorker();
    [[nodiscard]] bool isWorkWanted() const {
        return m_isWorkWanted.load(std::memory_order_relaxed);
    }
    bool waitForWork(TreeLevel& level);
    void handOver(TreeLevel level);

    static FileDescriptor openToRead(int directory, const char* name);
    [[nodiscard]] SharedFolder openSame(const SharedFolder& directory, const char* name,
                                        const TreeFolder& folder) const;
    [[nodiscard]] SharedFolder openByNames(const TreeFolder& folder) const;

    TreeVisitor& m_visitor;
    const std::uint64_t m_mountId;
    WorkMeter* const m_meter;
    SharedFolder m_directory;

    std::thread m_secondWorker;
    std::atomic<bool> m_isWorkWanted{false};
    std::atomic<bool> m_wasStopped{false};
    WorkMeter m_done;
    std::mutex m_mutex; // guards the members below
    std::condition_variable m_changed;
    std::unique_ptr<TreeLevel> m_sharedLevel;
    int m_workers = 1;
    int m_idleWorkers = 0;
    bool m_isDone = false;
};

} // namespace vexmoor
