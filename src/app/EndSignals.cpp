#include "EndSignals.h"

#include <fcntl.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <csignal>

namespace vexmoor {
namespace {

constexpr int kSignals[] = {SIGTERM, SIGINT, SIGHUP};
std::atomic<int> pipeEnd = -1;

void handle(int) {
    const int error = errno;
    const char byte = 0;
    // If the pipe is full, the signal is pending already.
    [[maybe_unused]] const auto written = ::write(pipeEnd, &byte, 1);
    errno = error;
}

void install(void (*handler)(int)) {
    struct sigaction action = {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    for (const int signal : kSignals)
        ::sigaction(signal, &action, nullptr);
}

} // namespace

EndSignals::EndSignals() {
    int ends[2];
    if (::pipe2(ends, O_CLOEXEC | O_NONBLOCK) != 0)
        return; // signals then end the program at once, which loses nothing
    m_read = FileDescriptor(ends[0]);
    m_write = FileDescriptor(ends[1]);
    m_notifier = std::make_unique<QSocketNotifier>(m_read.get(), QSocketNotifier::Read);
    connect(m_notifier.get(), &QSocketNotifier::activated, this, [this] {
        char bytes[16];
        while (::read(m_read.get(), bytes, sizeof bytes) > 0) {
        }
        emit endRequested();
    });
    pipeEnd = m_write.get();
    install(&handle);
}

EndSignals::~EndSignals() {
    if (m_write) {
        install(SIG_DFL);
        pipeEnd = -1;
    }
}

} // namespace vexmoor
