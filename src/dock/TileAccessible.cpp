#include "TileAccessible.h"

#include "TileWindow.h"

namespace vexmoor {

void TileAccessible::install() {
    QAccessible::installFactory(&TileAccessible::make); // installing it twice has no effect
}

QAccessibleInterface* TileAccessible::make(const QString&, QObject* object) {
    auto* const tile = qobject_cast<TileWindow*>(object);
    return tile != nullptr ? new TileAccessible(tile) : nullptr;
}

QStringList TileAccessible::actionNames() const {
    return {pressAction(), showMenuAction()};
}

void TileAccessible::doAction(const QString& name) {
    auto* const tile = qobject_cast<TileWindow*>(widget());
    if (name == pressAction())
        tile->animateClick();
    else if (name == showMenuAction())
        tile->requestMenu();
}

} // namespace vexmoor
