#include "Interrupt.h"

#include <csignal>

namespace vexmoor {

namespace {

std::atomic<WorkMeter*> interrupted = nullptr; // a signal handler can only reach globals

void stop(int) {
    if (WorkMeter* const meter = interrupted.load())
        meter->stop = true;
}

/// Sets a handler, but leaves ignored signals ignored: nohup and shells ignore them for background
/// processes.
void handle(int signal, void (*handler)(int)) {
    struct sigaction action {};
    if (sigaction(signal, nullptr, &action) != 0 || action.sa_handler == SIG_IGN)
        return;
    action.sa_handler = handler;
    action.sa_flags = static_cast<int>(SA_RESTART | SA_RESETHAND);
    sigaction(signal, &action, nullptr);
}

void handleAll(void (*handler)(int), Interrupt::Work work) {
    handle(SIGINT, handler);
    handle(SIGTERM, handler);
    if (work == Interrupt::Work::own)
        handle(SIGHUP, handler);
}

} // namespace

Interrupt::Interrupt(WorkMeter& meter, Work work) : m_work(work) {
    interrupted = &meter;
    handleAll(stop, m_work);
}

Interrupt::~Interrupt() {
    handleAll(SIG_DFL, m_work);
    interrupted = nullptr;
}

} // namespace vexmoor
