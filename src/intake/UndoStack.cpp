#include "UndoStack.h"

#include "base/Text.h"

#include <utility>

namespace vexmoor {

void UndoStack::push(std::string name, std::function<void()> action, std::function<bool()> isLeft) {
    m_actions.push_back({std::move(name), std::move(action), std::move(isLeft)});
    if (m_actions.size() > kDeepest)
        m_actions.pop_front();
    publish();
}

void UndoStack::refresh() {
    const auto count = m_actions.size();
    while (!m_actions.empty() && !m_actions.back().isLeft())
        m_actions.pop_back();
    if (m_actions.size() != count)
        publish();
}

bool UndoStack::undo() {
    refresh();
    if (m_actions.empty())
        return false;
    const auto run = std::move(m_actions.back().run);
    m_actions.pop_back();
    publish();
    run();
    return true;
}

void UndoStack::publish() {
    m_name.set(m_actions.empty() ? std::string() : m_actions.back().name);
}

std::string UndoStack::undoMenuItemTitle() const {
    return m_actions.empty() ? text("Undo") : text("Undo %1", {m_actions.back().name});
}

} // namespace vexmoor
