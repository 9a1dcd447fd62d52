#include "disposal/TreeSize.h"

#include "base/Saturated.h"
#include "disposal/TreeWalk.h"

#include <cerrno>

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
            tally.bytes = saturatedSum(tally.bytes, status->allocatedBytes);
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

class MountVisitor : public TreeVisitor {
  public:
    explicit MountVisitor(std::uint64_t mountId) : m_mountId(mountId) {}

    [[nodiscard]] bool hasFound() const { return m_meter.stop; }
    WorkMeter& meter() { return m_meter; }

    Entry visitEntry(const TreePlace& place, const char* name, TreeTally&) override {
        const auto status = fileStatus(place.descriptor, name);
        if (status && status->mountId != m_mountId)
            m_meter.stop = true;
        return status && status->isFolder() ? Entry::isFolder : Entry::visited;
    }
    FileDescriptor openDenied(const TreePlace&, const char*) override { return {}; }
    void notEntered(const TreePlace&, const char*, int error, TreeTally&) override {
        if (error == EXDEV)
            m_meter.stop = true;
    }
    Folder leaveFolder(TreeFolder&, int, const TreePlace&, TreeTally&) override {
        return Folder::left;
    }

  private:
    const std::uint64_t m_mountId;
    WorkMeter m_meter;
};

} // namespace

bool treeHoldsMount(int directory, const char* name) {
    const auto status = fileStatus(directory, name);
    if (!status)
        return false;
    MountVisitor visitor(status->mountId);
    (void)TreeWalk(visitor, status->mountId, &visitor.meter()).run(directory, name);
    return visitor.hasFound();
}

std::int64_t treeSize(int directory, const char* name, WorkMeter* meter) {
    const auto status = fileStatus(directory, name);
    if (!status)
        return 0;
    if (!status->isFolder()) {
        if (meter) {
            meter->entries.fetch_add(1, std::memory_order_relaxed);
            addSaturated(meter->bytes, status->allocatedBytes);
        }
        return status->allocatedBytes;
    }
    SizeVisitor visitor(status->mountId);
    const auto outcome = TreeWalk(visitor, status->mountId, meter).run(directory, name);
    return outcome ? outcome->tally.bytes : 0;
}

} // namespace vexmoor
