#include "ProgressLine.h"

#include "base/ByteCount.h"
#include "base/Text.h"

#include <unistd.h>

#include <chrono>
#include <iostream>

namespace vexmoor {

namespace {

using namespace std::chrono_literals;

constexpr auto kBeforeFirst = 300ms;
constexpr auto kBetween = 100ms;
constexpr const char* kClearLine = "\r\x1b[K";

/// Returns an empty text if nothing is counted yet.
std::string textOf(const WorkMeter& meter, std::chrono::duration<double> elapsed) {
    const auto entries = meter.entries.load();
    const auto removed = meter.removed.load();
    if (entries == 0 && removed == 0)
        return {};
    const auto done = removed > 0 ? removed : entries;
    const auto rate = static_cast<std::int64_t>(static_cast<double>(done) / elapsed.count());
    const auto perSecond = countText(rate);
    if (entries == 0)
        return plural("Deleting: %1 item · %2 items/s", "Deleting: %1 items · %2 items/s", done,
                      {perSecond});
    const auto bytes = byteCountText(meter.bytes.load());
    if (removed == 0)
        return plural("%1 item · %2 · %3 items/s", "%1 items · %2 · %3 items/s", done,
                      {bytes, perSecond});
    return plural("Dissolving: %2 of %1 item · %3 · %4 items/s",
                  "Dissolving: %2 of %1 items · %3 · %4 items/s", entries,
                  {countText(removed), bytes, perSecond});
}

} // namespace

ProgressLine::ProgressLine(const WorkMeter& meter, bool isWanted) : m_meter(meter) {
    if (isWanted && ::isatty(STDERR_FILENO) != 0)
        m_thread = std::thread([this] { run(); });
}

ProgressLine::~ProgressLine() {
    if (!m_thread.joinable())
        return;
    {
        const std::lock_guard lock(m_mutex);
        m_isEnding = true;
    }
    m_ended.notify_one();
    m_thread.join();
}

void ProgressLine::run() {
    const auto start = std::chrono::steady_clock::now();
    bool isShown = false;
    auto pause = std::chrono::milliseconds(kBeforeFirst);
    for (std::unique_lock lock(m_mutex);
         !m_ended.wait_for(lock, pause, [this] { return m_isEnding; }); pause = kBetween) {
        const std::string line = textOf(m_meter, std::chrono::steady_clock::now() - start);
        if (line.empty())
            continue;
        std::cerr << kClearLine << line << std::flush;
        isShown = true;
    }
    if (isShown)
        std::cerr << kClearLine << std::flush;
}

} // namespace vexmoor
