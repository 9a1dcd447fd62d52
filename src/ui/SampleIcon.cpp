#include "SampleIcon.h"

#include <QIcon>

namespace vexmoor {

QImage sampleIcon() {
    constexpr int kSide = 128; ///< as the thumbnails have it
    return QIcon::fromTheme(QStringLiteral("application-pdf"),
                            QIcon::fromTheme(QStringLiteral("x-office-document")))
        .pixmap(kSide)
        .toImage();
}

} // namespace vexmoor
