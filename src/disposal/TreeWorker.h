#pragma once

#include "disposal/TreeWalk.h"
#include "platform/FolderReader.h"

#include <string>
#include <vector>

namespace vexmoor {

/// A folder on a worker's way down: what is still to be read of it, and the names already read of
/// entries that are to be visited and of the subfolders that wait to be entered.
struct TreeLevel {
    TreeFolder* folder = nullptr;
    SharedFolder handle;        ///< null while closed to keep within the bound on descriptors
    std::string waiting{};      ///< names, each with a NUL behind it
    std::string unvisited{};    ///< the same
    off_t position = 0;         ///< where to read on after opening again
    std::size_t batchBytes = 0; ///< how much to read at once where there are no subfolders
    bool isRead = false;
    bool isReadByBoth = false;  ///< another worker reads from the same handle
    bool hasMoreToRead = false; ///< the last batch was a full one

    /// Takes the last name.
    std::string takeWaiting();
    /// About half of the names; the last one left only where that is allowed.
    std::string takeHalfOfWaiting(bool mayTakeLast);
    void abandon();

  private:
    [[nodiscard]] std::size_t lastNameStart() const;
};

/// One of a walk's two workers: goes down into the tree with a stack of levels of its own and
/// passes a part of it on when the other has nothing to do.
class TreeWorker {
  public:
    explicit TreeWorker(TreeWalk& walk) : m_walk(walk) {}

    /// Works at the level, then at whatever it is given, until the walk is done.
    void work(TreeLevel level);
    /// The same, first waiting to be given something.
    void work();

  private:
    void step();
    void readBatch(TreeLevel& level);
    void visitGiven(TreeLevel& level);
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
    bool m_isInBatch = false; ///< of the top level
    std::vector<TreeLevel> m_levels;
    std::size_t m_waitingBytes = 0;
    std::int64_t m_steps = 0;
    bool m_hasOffered = false; ///< the second worker was started, or cannot be
    TreeTally m_tally;
};

} // namespace vexmoor
