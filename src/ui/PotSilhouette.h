#pragma once

#include <QIcon>
#include <QImage>

namespace vexmoor {

/// The pot as a black silhouette in which the brew is a hole: a template that is tinted where it is
/// shown. A canvas pixel is half a point.
QImage potSilhouette();

/// A template tinted for panels of any colour: light, in a dark outline.
QIcon panelIcon(const QImage& silhouette);

} // namespace vexmoor
