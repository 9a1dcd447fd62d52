#pragma once

#include <QIcon>
#include <QImage>

namespace vexmoor {

/// Returns the pot as a black silhouette with a hole for the brew: a template image to be tinted. A
/// canvas pixel is half a point.
QImage potSilhouette();

/// Tints a template for panels: light on a dark desktop, dark on a light one, with an outline of
/// the opposite colour, since a panel may have any colour.
QIcon panelIcon(const QImage& silhouette, bool isDesktopDark);

} // namespace vexmoor
