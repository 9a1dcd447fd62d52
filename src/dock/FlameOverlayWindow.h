#pragma once

#include "Compositor.h"
#include "IconSink.h"

#include <QImage>
#include <QWidget>

#include <optional>

namespace vexmoor {

/// The borderless window above the tile in which the flames rise. It stays above everything except
/// fullscreen windows, and accepts no input or focus. Main thread.
class FlameOverlayWindow : public QWidget, public FlameWindow {
    Q_OBJECT

  public:
    /// The compositor must outlive the window.
    explicit FlameOverlayWindow(const Compositor& compositor);

    void showFlame(const PixelCanvas& flame, const DeskRect& frame) override;
    void orderOut() override;

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    void place(const QRect& physical, const QRectF& points);
    void updateShape();

    const Compositor& m_compositor;
    QImage m_image; ///< in physical pixels
    QRect m_place;
};

} // namespace vexmoor
