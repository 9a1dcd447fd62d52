#include "SampleIcon.h"

#include <QIcon>

namespace vexmoor {

QImage sampleIcon() {
    constexpr int kSide = 128; ///< same as thumbnails
    return QIcon::fromTheme(QStringLiteral("application-pdf"),
                            QIcon::fromTheme(QStringLiteral("x-office-document")))
        .pixmap(kSide)
        .toImage();
}

} // namespace vexmoor
