#include "InfoRepair.h"

#include "disposal/Disposer.h"

namespace vexmoor {

namespace {

Path binOf(const Sacrifice& item) {
    return Path(*item.trashed).parent_path().parent_path();
}

/// Returns the Bins on other volumes than the home Bin's.
std::set<Path> volumeBinsOf(const std::vector<Sacrifice>& items) {
    std::set<Path> bins;
    std::string_view last;
    for (const auto& item : items) {
        if (!item.trashed)
            continue;
        const std::string_view place = item.trashed->native();
        const auto files = place.substr(0, place.rfind('/'));
        if (files == last) // the usual case in a large batch
            continue;
        last = files;
        if (TrashDirectory::isOfVolume(*item.trashed))
            bins.insert(binOf(item));
    }
    return bins;
}

} // namespace

std::optional<bool> lacksInfo(const Sacrifice& item) {
    if (!fileStatus(*item.trashed))
        return std::nullopt;
    const auto info = fileStatus(binOf(item) / "info" / infoName(lastComponent(*item.trashed)));
    return !info || info->size == 0;
}

bool InfoRepair::repair(const Sacrifice& item) {
    constexpr int kMostWhole = 1000;
    const auto repaired = m_disposer.repairInfo(*item.trashed, item.binRecord());
    m_whole = repaired && *repaired ? 0 : m_whole + 1;
    return m_whole < kMostWhole;
}

void VolumeInfoRepair::lookAfter(const std::vector<Sacrifice>& items, std::int64_t batch) {
    for (const auto& bin : volumeBinsOf(items))
        look(bin, batch);
}

/// Checks the newest existing item of the Bin; repairs the others only if it lacks its info file.
void VolumeInfoRepair::look(const Path& bin, std::int64_t batch) {
    constexpr std::size_t kMostLooks = 16;
    constexpr std::size_t kMostRecords = 2000; // takes about as long as a small batch
    auto newest = m_parts.binnedItems.inVolumeBin(bin, kMostLooks, kMostRecords, batch);
    if (newest.empty())
        return;
    m_parts.work.post([this, bin, newest = std::move(newest)] {
        std::optional<bool> lacks;
        for (const auto& item : newest)
            if (lacks = lacksInfo(item); lacks)
                break;
        if (lacks.value_or(false))
            m_parts.main.post([this, bin] { repair(bin); });
    });
}

void VolumeInfoRepair::repair(const Path& bin) {
    const auto items = std::make_shared<const std::vector<Sacrifice>>(
        m_parts.binnedItems.inVolumeBin(bin, BinnedItems::kMost, BinnedItems::kMost));
    m_parts.work.post([this, items, meter = m_parts.batches.begin(nullptr)] {
        Disposer disposer(m_parts.directories, meter.get());
        InfoRepair infos(disposer);
        for (const auto& item : *items)
            if (meter->stop || !infos.repair(item))
                break;
        m_parts.main.post([this, meter] { m_parts.batches.end(meter); });
    });
}

} // namespace vexmoor
