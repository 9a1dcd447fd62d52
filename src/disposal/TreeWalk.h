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

/// A folder's open descriptor; closed with the last of those who share it.
using SharedFolder = std::shared_ptr<const FileDescriptor>;

/// A folder that has been entered and not yet left. Held by those who read it and by its entered
/// subfolders; who lets go last leaves it.
struct TreeFolder {
    TreeFolder(TreeFolder* theParent, std::string theName, const FileIdentity& theIdentity)
        : parent(theParent), name(std::move(theName)), identity(theIdentity) {}

    TreeFolder* const parent; ///< null for the folder in which the tree stands
    const std::string name;
    const FileIdentity identity;
    std::atomic<int> holders{1};

    // For the visitor.
    std::atomic<int> readError{0};             ///< why reading ended early
    std::atomic<std::int64_t> stayingHere{0};  ///< own entries that stay
    std::atomic<std::int64_t> stayingInAll{0}; ///< with all that stay in its subfolders
    int readings = 1;                          ///< how often it has been read; changed when leaving

    /// The entry's path, beginning with the name of the tree.
    [[nodiscard]] Path pathOf(const std::string& entry) const;
};

/// Where an entry is: its folder, and the descriptor that the folder is open at.
struct TreePlace {
    TreeFolder& folder;
    int descriptor;
};

/// What one worker has done so far.
struct TreeTally {
    std::int64_t entries = 0; ///< measured
    std::int64_t bytes = 0;   ///< of those
    std::int64_t removed = 0;
};

/// What is done with a tree's entries. Called by two threads at once, but for each entry by one.
class TreeVisitor {
  public:
    enum class Entry { visited, isFolder };
    enum class Folder { left, readAgain };

    virtual ~TreeVisitor() = default;

    /// An entry that does not seem to be a folder; the answer isFolder has it entered.
    virtual Entry visitEntry(const TreePlace& place, const char* name, TreeTally& tally) = 0;

    /// A folder to which access was denied: a descriptor to read it by, if there is a way.
    virtual FileDescriptor openDenied(const TreePlace& place, const char* name) = 0;

    /// A folder that cannot be entered: EXDEV where another file system is mounted.
    virtual void notEntered(const TreePlace& place, const char* name, int error,
                            TreeTally& tally) = 0;

    /// All in the folder has been visited. `descriptor` is its own (-1 when lost: it has been moved
    /// away meanwhile); `parent` has the place of its name (the descriptor can be -1 too).
    virtual Folder leaveFolder(TreeFolder& folder, int descriptor, const TreePlace& parent,
                               TreeTally& tally) = 0;
};

/// Walks through all entries of a tree, children before their folder, with a second thread once
/// there is enough to do. Works from held directory descriptors (a bounded number of them at any
/// depth), follows no links, stays on one mount, and its memory does not grow with the number of
/// entries. For one walk.
class TreeWalk {
  public:
    struct Outcome {
        TreeTally tally;
        std::int64_t staying = 0; ///< sum of what the visitor left in stayingInAll
        bool stopped = false;     ///< the meter asked to stop before the end
    };

    /// `mountId`: the mount to stay on. The meter may be null.
    TreeWalk(TreeVisitor& visitor, std::uint64_t mountId, WorkMeter* meter);
    ~TreeWalk();

    /// Visits `name` in the directory and all below. Blocks until done. Fails only where the
    /// directory itself is none.
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
    void give(TreeLevel level);

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
    std::mutex m_mutex; // guards what follows
    std::condition_variable m_changed;
    std::unique_ptr<TreeLevel> m_gift;
    int m_workers = 1;
    int m_idleWorkers = 0;
    bool m_isDone = false;
};

} // namespace vexmoor
