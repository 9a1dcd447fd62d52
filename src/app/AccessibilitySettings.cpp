#include "AccessibilitySettings.h"

#include "app/Alerts.h"

#include "dock/DockTile.h"

#include <QCoreApplication>

namespace vexmoor {

void openAccessibilitySettings(Alerts& alerts) {
    if (DockTile::openSettings())
        return;
    const auto tr = [](const char* source) {
        return QCoreApplication::translate("AccessibilitySettings", source);
    };
    alerts.inform(tr("There are no accessibility settings"),
                  tr("No program for them is installed. Flames leave the tile wherever the "
                     "accessibility service runs."));
}

} // namespace vexmoor
