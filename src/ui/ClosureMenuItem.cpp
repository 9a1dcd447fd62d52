#include "ClosureMenuItem.h"

#include <utility>

namespace vexmoor {

ClosureMenuItem::ClosureMenuItem(const QString& title, std::function<void()> run, QObject* parent)
    : QAction(title, parent), m_run(std::move(run)) {
    setMenuRole(NoRole);
    connect(this, &QAction::triggered, this, &ClosureMenuItem::fire);
}

} // namespace vexmoor
