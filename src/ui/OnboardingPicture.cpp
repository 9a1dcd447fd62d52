#include "OnboardingPicture.h"

#include "Accent.h"
#include "CauldronDemoView.h"
#include "Glow.h"
#include "Mock.h"
#include "Motion.h"
#include "TextStyle.h"
#include "Transition.h"

#include "art/CauldronArt.h"

#include <QPainter>

#include <cmath>

namespace vexmoor {
namespace {

constexpr int kDemoScale = 3;
constexpr int kFadeMilliseconds = 160;

} // namespace

/// Shows the previous picture while it fades out.
class OnboardingPicture::Veil : public QWidget {
  public:
    explicit Veil(QWidget* parent) : QWidget(parent) {
        setAttribute(Qt::WA_TransparentForMouseEvents);
        hide();
    }
    QPixmap before;
    Transition* const opacity = new Transition(*this, kFadeMilliseconds);

  protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setOpacity(opacity->at());
        painter.drawPixmap(0, 0, before);
    }
};

OnboardingPicture::OnboardingPicture(const Skin& skin, QWidget* parent,
                                     const MakeFrameTimer& makeTimer)
    : QWidget(parent), m_skin(skin),
      m_demo(new CauldronDemoView(skin, kDemoScale, this, makeTimer)), m_veil(new Veil(this)) {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    connect(m_veil->opacity, &Transition::finished, m_veil, &QWidget::hide);
}

QSize OnboardingPicture::sizeHint() const {
    const QSize mock = Mock::sizeFor(font()).toSize();
    return {mock.width(), std::max(mock.height() + 12, CauldronArt::kHeight * kDemoScale + 8)};
}

void OnboardingPicture::setSkin(const Skin& skin) {
    m_skin = skin;
    m_demo->setSkin(skin);
    update();
}

void OnboardingPicture::show(Onboarding::Picture picture, const QString& text) {
    if (picture == m_picture && text == m_text)
        return;
    const bool fades = isVisible() && !reducedMotion();
    const QPixmap before = fades ? grab() : QPixmap();
    m_picture = picture;
    m_text = text;
    setAccessibleName(text);
    m_demo->setVisible(picture == Onboarding::Picture::demo);
    update();
    if (fades)
        fadeFrom(before);
}

void OnboardingPicture::fadeFrom(const QPixmap& before) {
    m_veil->before = before;
    m_veil->opacity->setAt(1);
    m_veil->resize(size());
    m_veil->raise();
    m_veil->show();
    m_veil->opacity->moveTo(0);
}

void OnboardingPicture::resizeEvent(QResizeEvent*) {
    m_demo->move((width() - m_demo->width()) / 2, height() - m_demo->height() - 4);
}

void OnboardingPicture::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QColor ground = groundOf(palette());
    painter.fillRect(rect(), ground); // covers the picture that fades out
    if (m_picture == Onboarding::Picture::demo) {
        QRect pot = m_demo->geometry();
        pot.setTop(pot.bottom() - pot.width());
        pot.translate(0, -pot.height() /
                             3); // centres the glow on the acid and keeps it inside the picture
        paintGlow(painter, pot, Accent::of(m_skin, ground).glow, ground);
        return;
    }
    const QSizeF size = Mock::sizeFor(font());
    const QRectF area(QPointF(std::floor((width() - size.width()) / 2),
                              std::floor((height() - size.height()) / 2)),
                      size);
    const Mock::Style style{palette(), font(), m_skin};
    if (m_picture == Onboarding::Picture::settingsRow)
        Mock::settingsRow(painter, area, m_text, style);
    else
        Mock::dialog(painter, area, m_text, style);
}

} // namespace vexmoor
