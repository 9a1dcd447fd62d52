#pragma once

#include <QAction>

#include <functional>

namespace vexmoor {

/// An item of a menu that runs a closure when it is chosen. It has no key.
class ClosureMenuItem : public QAction {
    Q_OBJECT

  public:
    ClosureMenuItem(const QString& title, std::function<void()> run, QObject* parent = nullptr);

    void fire() { m_run(); }

  private:
    std::function<void()> m_run;
};

} // namespace vexmoor
