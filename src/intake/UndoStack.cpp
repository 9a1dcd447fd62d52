#include "UndoStack.h"

#include <utility>

namespace vexmoor {

void UndoStack::push(std::string name, std::function<void()> action) {
    m_actions.push_back({std::move(name), std::move(action)});
    if (m_actions.size() > kDeepest)
        m_actions.pop_front();
    publish();
}

void UndoStack::undo() {
    if (m_actions.empty())
        return;
    const auto run = std::move(m_actions.back().run);
    m_actions.pop_back();
    publish();
    run();
}

void UndoStack::publish() {
    m_name.set(m_actions.empty() ? std::string() : m_actions.back().name);
}

std::string UndoStack::undoMenuItemTitle() const {
    return m_actions.empty() ? "Undo" : "Undo " + m_actions.back().name;
}

} // namespace vexmoor
