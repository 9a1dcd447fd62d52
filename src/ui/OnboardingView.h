#pragma once

#include "Onboarding.h"

#include "dock/FrameTimer.h"
#include "skins/Skin.h"

#include <QDialog>

class QLabel;

namespace vexmoor {

class AccentButton;
class OnboardingPicture;
class OnboardingStatus;
class PageDots;

/// The walkthrough's window, created for each showing. Queries the session every second while
/// visible. Main thread.
class OnboardingView : public QDialog {
    Q_OBJECT

  public:
    using Page = Onboarding::Page;

    OnboardingView(Onboarding::Ports ports, const Skin& skin,
                   const MakeFrameTimer& makeTimer = std::make_unique<QtFrameTimer>);

    [[nodiscard]] Page page() const { return m_onboarding.page(); }
    void setSkin(const Skin& skin);

  protected:
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    void layOut();
    void refresh();
    void announce();
    void recolour();
    void fit();
    [[nodiscard]] int highestTitle(int width) const;

    Skin m_skin;
    Onboarding m_onboarding;
    Page m_announced = Page::welcome;
    QSize m_size; ///< the largest size needed so far
    std::unique_ptr<FrameTimer> m_second;
    OnboardingPicture* m_picture;
    QLabel* m_title;
    QLabel* m_blurb;
    OnboardingStatus* m_status;
    PageDots* m_dots;
    AccentButton* m_secondary;
    AccentButton* m_primary;
};

} // namespace vexmoor
