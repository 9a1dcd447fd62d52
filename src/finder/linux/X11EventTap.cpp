#include "X11EventTap.h"

#include "X11EventTapLoop.h"

#include <utility>

namespace vexmoor {

X11EventTap::X11EventTap(Parts parts)
    : m_parts(std::move(parts)), m_orders(std::make_unique<Orders>()) {}

X11EventTap::~X11EventTap() {
    remove();
}

bool X11EventTap::install(Handler handler) {
    remove();
    m_orders->ends = false;
    m_loop = Loop::open(m_parts, *m_orders, std::move(handler));
    if (!m_loop)
        return false;
    m_thread = std::thread([loop = m_loop.get()] { loop->run(); });
    return true;
}

void X11EventTap::remove() {
    if (!m_thread.joinable())
        return;
    m_orders->ends = true;
    m_orders->wake();
    m_thread.join();
    m_loop.reset();
}

void X11EventTap::captureUndoKey(bool captures) {
    m_orders->capturesUndoKey = captures;
    m_orders->wake();
}

void X11EventTap::refresh() {
    m_orders->refreshes = true;
    m_orders->wake();
}

void X11EventTap::waitForRelease() {
    const std::lock_guard lock(m_orders->answering);
}

void X11EventTap::ignoreNext(std::uint8_t key) {
    m_orders->ignoreNext(key);
}

std::optional<std::string> X11EventTap::frontmostApplication() {
    return m_loop->fileManagerIsActive() ? std::optional<std::string>(kFinder) : std::nullopt;
}

} // namespace vexmoor
