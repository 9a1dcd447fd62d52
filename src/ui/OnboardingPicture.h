#pragma once

#include "Onboarding.h"

#include "dock/FrameTimer.h"
#include "skins/Skin.h"

#include <QWidget>

namespace vexmoor {

class CauldronDemoView;

/// The picture of a walkthrough page. A new picture fades in, except with reduced motion. Main
/// thread.
class OnboardingPicture : public QWidget {
    Q_OBJECT

  public:
    OnboardingPicture(const Skin& skin, QWidget* parent, const MakeFrameTimer& makeTimer);

    void setSkin(const Skin& skin);

    /// `text` is shown in the drawn window.
    void show(Onboarding::Picture picture, const QString& text);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    class Veil;

    void fadeFrom(const QPixmap& before);

    Skin m_skin;
    Onboarding::Picture m_picture = Onboarding::Picture::demo;
    QString m_text;
    CauldronDemoView* m_demo;
    Veil* m_veil;
};

} // namespace vexmoor
