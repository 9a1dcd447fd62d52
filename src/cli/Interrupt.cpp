#include "Interrupt.h"

#include <csignal>

namespace vexmoor {

namespace {

constexpr int kSignals[] = {SIGINT, SIGTERM, SIGHUP};
std::atomic<WorkMeter*> interrupted = nullptr; // a signal handler has no other way to know

void stop(int) {
    if (WorkMeter* const meter = interrupted.load())
        meter->stop = true;
}

void handleWith(void (*handler)(int)) {
    struct sigaction action {};
    action.sa_handler = handler;
    action.sa_flags = static_cast<int>(SA_RESTART | SA_RESETHAND);
    for (const int signal : kSignals)
        sigaction(signal, &action, nullptr);
}

} // namespace

Interrupt::Interrupt(WorkMeter& meter) {
    interrupted = &meter;
    handleWith(stop);
}

Interrupt::~Interrupt() {
    handleWith(SIG_DFL);
    interrupted = nullptr;
}

} // namespace vexmoor
