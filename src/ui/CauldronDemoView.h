#pragma once

#include "art/PixelCanvas.h"
#include "base/Published.h"
#include "dock/FrameTimer.h"
#include "skins/Skin.h"

#include <QWidget>

namespace vexmoor {

/// A looping demonstration: the pot idles, receives a document and burns it. Runs only while
/// visible; with reduced motion it shows one frame of the burn. Main thread.
class CauldronDemoView : public QWidget {
    Q_OBJECT

  public:
    static constexpr double kFps = 24;
    static constexpr int kIdleFrames = 30;
    static constexpr int kBurnFrames = 36;
    /// The length of the loop: idle frames, the burn, and half as many idle frames.
    static constexpr int kFrames = kIdleFrames + kBurnFrames + kIdleFrames / 2;

    /// `scale` is in points per canvas pixel. If that is not a whole number of physical pixels, the
    /// picture is drawn smaller, so that its edges stay sharp.
    CauldronDemoView(const Skin& skin, int scale, QWidget* parent = nullptr,
                     const MakeFrameTimer& makeTimer = std::make_unique<QtFrameTimer>);

    /// Returns the picture of a frame. A null `sample` burns without a document.
    static PixelCanvas scene(int frame, const Skin& skin, const QImage& sample);

    void setSkin(const Skin& skin);

  protected:
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

  private:
    void draw();
    void run();

    Skin m_skin;
    int m_scale;
    QImage m_sample;
    int m_frame = 0;
    PixelCanvas m_canvas;
    std::unique_ptr<FrameTimer> m_timer;
    Subscription m_reducedMotion;
};

} // namespace vexmoor
