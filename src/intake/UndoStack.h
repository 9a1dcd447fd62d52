#pragma once

#include "base/Published.h"

#include <deque>
#include <functional>
#include <string>

namespace vexmoor {

/// Named actions that undo what was done, newest on top. There is no redo. Main thread only.
class UndoStack {
  public:
    static constexpr std::size_t kDeepest = 100;

    /// `isLeft` tells whether the action still has something to do.
    void push(std::string name, std::function<void()> action, std::function<bool()> isLeft);

    /// Takes the newest action off and runs it, after those on top that have nothing left to do;
    /// nothing where there is none.
    void undo();

    /// Takes the newest actions off that have nothing left to do.
    void refresh();

    [[nodiscard]] bool canUndo() const { return !m_actions.empty(); }

    /// The newest action's name; empty where there is none.
    [[nodiscard]] const std::string& undoActionName() const { return m_name.get(); }
    /// Calls with that name at once and whenever the stack changes.
    Subscription subscribe(Published<std::string>::Subscriber subscriber) {
        return m_name.subscribe(std::move(subscriber));
    }

    /// "Undo", with the action's name where there is one.
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
