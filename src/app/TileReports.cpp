#include "TileReports.h"

#include "dock/Tile.h"
#include "intake/Ports.h"
#include "intake/Texts.h"

namespace vexmoor {

void reportFailuresOf(Tile& tile, Dialogs& dialogs) {
    QObject::connect(&tile, &Tile::refused, &tile,
                     [&dialogs](bool tookOthers) { dialogs.report(foreignReport(tookOthers)); });
    QObject::connect(&tile, &Tile::withheld, &tile,
                     [&dialogs] { dialogs.report(withheldReport()); });
    QObject::connect(&tile, &Tile::lost, &tile, [&dialogs](const QString& reason) {
        dialogs.report(tileLostReport(reason.toStdString()));
    });
}

} // namespace vexmoor
