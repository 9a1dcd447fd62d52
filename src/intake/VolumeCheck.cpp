#include "VolumeCheck.h"

#include "disposal/TrashDirectory.h"

#include <condition_variable>
#include <memory>
#include <mutex>
#include <thread>

namespace vexmoor {

bool VolumeCheck::answersFor(const Path& place) {
    return !TrashDirectory::isOfVolume(place) || answers(place.parent_path());
}

bool VolumeCheck::answers(const Path& folder) {
    if (const auto known = m_known.find(folder); known != m_known.end())
        return known->second;
    struct Look {
        std::mutex mutex;
        std::condition_variable over;
        bool isOver = false;
    };
    const auto look = std::make_shared<Look>();
    // A call that hangs can't be ended, so nothing waits for its thread.
    std::thread([look, folder] {
        (void)fileStatus(folder / ".");
        const std::lock_guard lock(look->mutex);
        look->isOver = true;
        look->over.notify_one();
    }).detach();
    std::unique_lock lock(look->mutex);
    return m_known[folder] = look->over.wait_for(lock, kTimeout, [&] { return look->isOver; });
}

} // namespace vexmoor
