#include "ProgressLine.h"

#include "base/ByteCount.h"

#include <unistd.h>

#include <chrono>
#include <iostream>

namespace vexmoor {

namespace {

using namespace std::chrono_literals;

constexpr auto kBeforeFirst = 300ms;
constexpr auto kBetween = 100ms;
constexpr const char* kClearLine = "\r\x1b[K";

} // namespace

ProgressLine::ProgressLine(const WorkMeter& meter) : m_meter(meter) {
    if (::isatty(STDERR_FILENO) != 0)
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
        const std::chrono::duration<double> elapsed = std::chrono::steady_clock::now() - start;
        const auto entries = m_meter.entries.load();
        std::cerr << kClearLine << (m_meter.isDissolving ? "Dissolving: " : "")
                  << countText(entries) << " items · " << byteCountText(m_meter.bytes.load())
                  << " · "
                  << countText(static_cast<std::int64_t>(double(entries) / elapsed.count()))
                  << " items/s" << std::flush;
        isShown = true;
    }
    if (isShown)
        std::cerr << kClearLine << std::flush;
}

} // namespace vexmoor
