#pragma once

#include <QIcon>
#include <QImage>

namespace vexmoor {

/// The pot as a black silhouette in which the brew is a hole: a template that is tinted where it is
/// shown. A canvas pixel is half a point.
QImage potSilhouette();

/// A template tinted for panels: light on a dark desktop and dark on a light one, in an outline of
/// the other, as panels may be of any colour.
QIcon panelIcon(const QImage& silhouette, bool isDesktopDark);

} // namespace vexmoor
