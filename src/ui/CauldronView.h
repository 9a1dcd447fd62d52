#pragma once

#include "art/PixelCanvas.h"
#include "dock/FrameTimer.h"
#include "skins/Skin.h"

#include <QWidget>

namespace vexmoor {

/// The idling pot of one skin, in a square. It moves only while it can be seen. Main thread.
class CauldronView : public QWidget {
    Q_OBJECT

  public:
    /// `size` is the square's side in points.
    explicit CauldronView(const Skin& skin, int size, QWidget* parent = nullptr,
                          const MakeFrameTimer& makeTimer = std::make_unique<QtFrameTimer>);

    void setSkin(const Skin& skin);

    [[nodiscard]] QSize sizeHint() const override { return {m_side, m_side}; }

  protected:
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

  private:
    void draw();

    Skin m_skin;
    int m_side;
    int m_tick = 0;
    PixelCanvas m_canvas;
    std::unique_ptr<FrameTimer> m_timer;
};

} // namespace vexmoor
