#pragma once

#include "base/Published.h"

#include <deque>
#include <functional>
#include <string>

namespace vexmoor {

/// A stack of named undo actions. There is no redo. Main thread only.
class UndoStack {
  public:
    static constexpr std::size_t kDeepest = 100;

    /// `isLeft` returns whether the action still has something to do.
    void push(std::string name, std::function<void()> action, std::function<bool()> isLeft);

    /// Removes and runs the newest action that has something left to do. Returns false if there is
    /// none.
    bool undo();

    /// Removes the newest actions that have nothing left to do.
    void refresh();

    [[nodiscard]] bool canUndo() const { return !m_actions.empty(); }

    /// Returns the newest action's name; empty if there is none.
    [[nodiscard]] const std::string& undoActionName() const { return m_name.get(); }
    /// Calls `subscriber` with that name now and whenever the stack changes.
    Subscription subscribe(Published<std::string>::Subscriber subscriber) {
        return m_name.subscribe(std::move(subscriber));
    }

    /// Returns "Undo", followed by the action's name if there is one.
    [[nodiscard]] std::string undoMenuItemTitle() const;

  private:
    struct Action {
        std::string name;
        std::function<void()> run;
        std::function<bool()> isLeft;
    };

    void publish();

    std::deque<Action> m_actions;
    Published<std::string> m_name;
};

} // namespace vexmoor
