#include "disposal/TreeSize.h"

#include "base/Checked.h"
#include "disposal/TreeWalk.h"

namespace vexmoor {

namespace {

class SizeVisitor : public TreeVisitor {
  public:
    explicit SizeVisitor(std::uint64_t mountId) : m_mountId(mountId) {}

    Entry visitEntry(const TreePlace& place, const char* name, TreeTally& tally) override {
        const auto status = fileStatus(place.descriptor, name);
        if (status && status->isFolder())
            return Entry::isFolder;
        ++tally.entries;
        if (status && status->mountId == m_mountId)
            tally.bytes = checkedSum(tally.bytes, status->allocatedBytes);
        return Entry::visited;
    }

    FileDescriptor openDenied(const TreePlace&, const char*) override { return {}; }
    void notEntered(const TreePlace&, const char*, int, TreeTally& tally) override {
        ++tally.entries;
    }
    Folder leaveFolder(TreeFolder&, int, const TreePlace&, TreeTally& tally) override {
        ++tally.entries;
        return Folder::left;
    }

  private:
    const std::uint64_t m_mountId;
};

} // namespace

std::int64_t treeSize(int directory, const char* name, WorkMeter* meter) {
    const auto status = fileStatus(directory, name);
    if (!status)
        return 0;
    if (!status->isFolder()) {
        if (meter) {
            meter->entries.fetch_add(1, std::memory_order_relaxed);
            meter->bytes.fetch_add(status->allocatedBytes, std::memory_order_relaxed);
        }
        return status->allocatedBytes;
    }
    SizeVisitor visitor(status->mountId);
    const auto outcome = TreeWalk(visitor, status->mountId, meter).run(directory, name);
    return outcome ? outcome->tally.bytes : 0;
}

} // namespace vexmoor
