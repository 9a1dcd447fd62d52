#pragma once

#include "disposal/TreeWalk.h"
#include "platform/FolderReader.h"

#include <string>
#include <vector>

namespace vexmoor {

/// A folder on a worker's path: its reading state, and the names of entries to visit and of
/// subfolders to enter.
struct TreeLevel {
    TreeFolder* folder = nullptr;
    SharedFolder handle;        ///< null while closed to limit open descriptors
    std::string waiting{};      ///< names, each terminated by NUL
    std::string unvisited{};    ///< same
    off_t position = 0;         ///< where to continue reading after reopening
    std::size_t batchBytes = 0; ///< batch size if there are no subfolders
    bool isRead = false;
    bool isReadByBoth = false;  ///< another worker reads from the same descriptor
    bool hasMoreToRead = false; ///< the last batch was full

    /// Removes and returns the last name.
    std::string takeWaiting();
    /// Removes and returns about half of the names, and the last one only if allowed.
    std::string takeHalfOfWaiting(bool mayTakeLast);
    void abandon();

  private:
    [[nodiscard]] std::size_t lastNameStart() const;
};

/// One of a walk's two workers. Descends the tree with its own stack of levels and shares a part of
/// it when the other worker is idle.
class TreeWorker {
  public:
    explicit TreeWorker(TreeWalk& walk) : m_walk(walk) {}

    /// Processes the level, and then shared levels until the walk is done.
    void work(TreeLevel level);
    /// Same, but starts by waiting for a shared level.
    void work();

  private:
    void step();
    void readBatch(TreeLevel& level);
    void visitShared(TreeLevel& level);
    void visit(TreeLevel& level, const TreePlace& place, const char* name, bool isFolder);
    void enterWaiting();
    void enter(const TreePlace& place, const std::string& name, FileDescriptor descriptor);
    void push(TreeLevel level);
    void leave();
    TreeVisitor::Folder finish(const TreeLevel& level, const TreePlace& parent);
    void restore(TreeLevel& level, const SharedFolder& child);
    [[nodiscard]] SharedFolder openParent(const TreeFolder& folder,
                                          const SharedFolder& child) const;
    void shareIfWanted();
    bool share(TreeLevel& level);
    [[nodiscard]] std::size_t batchBytes(const TreeLevel& level) const;
    void countStep();
    void report();

    TreeWalk& m_walk;
    FolderReader m_reader;
    bool m_isInBatch = false; ///< a batch of the top level is being processed
    std::vector<TreeLevel> m_levels;
    std::size_t m_waitingBytes = 0;
    std::int64_t m_steps = 0;
    bool m_hasOffered = false; ///< the second worker was started or cannot be started
    TreeTally m_tally;
};

} // namespace vexmoor
