#include "RunningBatches.h"

#include <algorithm>
#include <utility>

namespace vexmoor {

RunningBatches::Meter RunningBatches::begin(Meter meter) {
    if (!meter)
        meter = std::make_shared<WorkMeter>();
    if (m_stopped)
        meter->stop = true;
    auto meters = m_meters.get();
    meters.push_back(meter);
    m_meters.set(std::move(meters));
    return meter;
}

void RunningBatches::end(const Meter& meter) {
    auto meters = m_meters.get();
    if (const auto found = std::ranges::find(meters, meter); found != meters.end())
        meters.erase(found);
    m_meters.set(std::move(meters));
}

void RunningBatches::stop() {
    m_stopped = true;
    for (const auto& meter : m_meters.get())
        meter->stop = true;
}

Subscription RunningBatches::subscribe(std::function<void(std::size_t)> subscriber) {
    return m_meters.subscribe(
        [subscriber = std::move(subscriber)](const Meters& meters) { subscriber(meters.size()); });
}

} // namespace vexmoor
