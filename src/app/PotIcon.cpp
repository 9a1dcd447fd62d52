#include "PotIcon.h"

#include "art/CauldronArt.h"
#include "dock/DockIconAnimator.h"
#include "dock/PixelImage.h"

namespace vexmoor {

QPixmap potPicture(int cell) {
    const auto pot =
        DockIconAnimator::iconOf(CauldronArt::idle(1, true, 0, CauldronArt::current()));
    return QPixmap::fromImage(enlarged(pot, QSize(pot.width(), pot.height()) * cell));
}

QIcon potIcon() {
    QIcon icon;
    for (const int cell : {1, 2, 4, 8})
        icon.addPixmap(potPicture(cell));
    return icon;
}

} // namespace vexmoor
