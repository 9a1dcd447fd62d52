#pragma once

#include "art/PixelCanvas.h"
#include "base/Published.h"
#include "dock/FrameTimer.h"
#include "skins/Skin.h"

#include <QWidget>

namespace vexmoor {

/// The idling pot of a skin in a square. Animated only while visible and without reduced motion.
/// Main thread.
class CauldronView : public QWidget {
    Q_OBJECT

  public:
    /// `size` is the side in points.
    explicit CauldronView(const Skin& skin, int size, QWidget* parent = nullptr,
                          const MakeFrameTimer& makeTimer = std::make_unique<QtFrameTimer>);

    /// Returns the largest side of at most `most` points at which a canvas pixel is a whole number
    /// of physical pixels, or `most` if there is none. `ratio` is the number of physical pixels per
    /// point.
    static int crispSide(int most, double ratio);

    void setSkin(const Skin& skin);
    void setSide(int size);

    [[nodiscard]] QSize sizeHint() const override { return {m_side, m_side}; }

  protected:
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

  private:
    void draw();
    void run();

    Skin m_skin;
    int m_side;
    int m_tick = 0;
    PixelCanvas m_canvas;
    std::unique_ptr<FrameTimer> m_timer;
    Subscription m_reducedMotion;
};

} // namespace vexmoor
