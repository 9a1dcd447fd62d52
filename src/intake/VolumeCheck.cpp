#include "VolumeCheck.h"

#include "disposal/TrashDirectory.h"

#include <algorithm>
#include <condition_variable>
#include <mutex>
#include <thread>

namespace vexmoor {

namespace {

using Moments = std::chrono::steady_clock;

} // namespace

struct VolumeLooks::Look {
    const Moments::time_point begun = Moments::now();
    std::mutex mutex;
    std::condition_variable over;
    bool isOver = false;

    bool isOverBy(Moments::time_point moment) {
        std::unique_lock lock(mutex);
        return over.wait_until(lock, moment, [this] { return isOver; });
    }
};

std::shared_ptr<VolumeLooks::Look> VolumeLooks::begin(const Path& folder) {
    auto look = std::make_shared<Look>();
    std::thread([look, folder] {
        (void)fileStatus(folder / ".");
        const std::lock_guard lock(look->mutex);
        look->isOver = true;
        look->over.notify_one();
    }).detach();
    return look;
}

VolumeLooks::Answer VolumeLooks::answer(const Path& folder) {
    auto& look = m_looks[folder];
    if (!look || look->isOverBy({})) // an older answer may be outdated
        look = begin(folder);
    const auto timeout = look->begun + kTimeout;
    if (look->isOverBy(std::min(Moments::now() + m_patience, timeout)))
        return Answer::yes;
    return Moments::now() < timeout ? Answer::notYet : Answer::no;
}

VolumeCheck::Answer VolumeCheck::answer(const Path& folder) {
    const auto known = m_known.find(folder);
    return known != m_known.end() ? known->second : m_known[folder] = m_looks->answer(folder);
}

VolumeCheck::Answer VolumeCheck::answerFor(const Path& place) {
    return TrashDirectory::isOfVolume(place) ? answer(place.parent_path()) : Answer::yes;
}

} // namespace vexmoor
