#pragma once

#include "art/PixelCanvas.h"
#include "base/Published.h"
#include "dock/FrameTimer.h"
#include "skins/Skin.h"

#include <QWidget>

namespace vexmoor {

/// A demonstration without end: the pot idles, receives a document and burns it. It moves only
/// while it can be seen; where the user wants less motion it shows one moment of the burn. Main
/// thread.
class CauldronDemoView : public QWidget {
    Q_OBJECT

  public:
    static constexpr double kFps = 24;
    static constexpr int kIdleFrames = 30;
    static constexpr int kBurnFrames = 36;
    /// The burn, between the idle frames before and half as many after it.
    static constexpr int kFrames = kIdleFrames + kBurnFrames + kIdleFrames / 2;

    /// `scale` is in points a canvas pixel. Where that is no whole number of physical pixels, the
    /// picture is drawn smaller, so that its edges stay hard.
    CauldronDemoView(const Skin& skin, int scale, QWidget* parent = nullptr,
                     const MakeFrameTimer& makeTimer = std::make_unique<QtFrameTimer>);

    /// The picture of a frame, counted from 0 on; a null `sample` burns without a document.
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
