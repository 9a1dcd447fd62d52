#include "X11EventTap.h"

#include "X11EventTapLoop.h"

#include <utility>

namespace vexmoor {

X11EventTap::X11EventTap(Parts parts)
    : m_parts(std::move(parts)), m_requests(std::make_unique<Requests>()) {}

X11EventTap::~X11EventTap() {
    remove();
}

bool X11EventTap::install(Handler handler) {
    remove();
    m_requests->ends = false;
    m_loop = Loop::open(m_parts, *m_requests, std::move(handler));
    if (!m_loop)
        return false;
    m_thread = std::thread([loop = m_loop.get()] { loop->run(); });
    return true;
}

void X11EventTap::remove() {
    if (!m_thread.joinable())
        return;
    m_requests->ends = true;
    m_requests->wake();
    m_thread.join();
    m_loop.reset();
}

void X11EventTap::captureUndoKey(bool captures) {
    m_requests->capturesUndoKey = captures;
    m_requests->wake();
}

void X11EventTap::refresh() {
    m_requests->refreshes = true;
    m_requests->wake();
}

void X11EventTap::waitForRelease() {
    const std::lock_guard lock(m_requests->answering);
}

void X11EventTap::ignoreNext(std::uint8_t key) {
    m_requests->ignoreNext(key);
}

std::optional<std::string> X11EventTap::frontmostApplication() {
    return m_loop->fileManagerIsActive() ? std::optional<std::string>(kFinder) : std::nullopt;
}

} // namespace vexmoor
