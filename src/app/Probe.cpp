#include "Probe.h"

#include <QStringList>

namespace vexmoor {
namespace {

QString text(const DeskRect& rect) {
    return QStringLiteral("(%1, %2, %3, %4)")
        .arg(rect.x)
        .arg(rect.y)
        .arg(rect.width)
        .arg(rect.height);
}

} // namespace

QString probeText(bool accessible, const std::optional<DeskRect>& tile,
                  const std::vector<DeskRect>& screens) {
    QStringList frames;
    for (const DeskRect& screen : screens)
        frames.push_back(text(screen));
    return QStringLiteral("accessible: %1\ntile: %2\nscreens: %3\n")
        .arg(accessible ? QStringLiteral("true") : QStringLiteral("false"),
             tile ? text(*tile) : QStringLiteral("nil"), frames.join(QStringLiteral(" ")));
}

} // namespace vexmoor
