#include "Tile.h"

#include "DroppedUris.h"

namespace vexmoor {

void Tile::report(const QByteArray& uriList) {
    const DroppedUris uris = DroppedUris::fromList(uriList.toStdString());
    if (!uris.items.empty())
        emit dropped(uris.items);
    if (uriList.isEmpty())
        emit withheld();
    else if (uris.items.empty() || uris.others > 0)
        emit refused(!uris.items.empty());
}

} // namespace vexmoor
