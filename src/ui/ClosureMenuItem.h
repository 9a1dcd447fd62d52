#pragma once

#include <QAction>

#include <functional>

namespace vexmoor {

/// A menu item that calls a function when triggered. It has no shortcut.
class ClosureMenuItem : public QAction {
    Q_OBJECT

  public:
    ClosureMenuItem(const QString& title, std::function<void()> run, QObject* parent = nullptr);

    void fire() { m_run(); }

  private:
    std::function<void()> m_run;
};

} // namespace vexmoor
