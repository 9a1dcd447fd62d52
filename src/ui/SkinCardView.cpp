#include "SkinCardView.h"

#include "CrispPicture.h"
#include "FocusRing.h"
#include "Symbol.h"
#include "TextStyle.h"
#include "Transition.h"

#include "art/CauldronArt.h"
#include "dock/DockIconAnimator.h"

#include <QEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QStyle>

#include <cmath>
#include <utility>

namespace vexmoor {
namespace {

constexpr int kPot = 68;
constexpr int kAbove = 12;  ///< above the pot
constexpr int kBetween = 6; ///< between pot and name
constexpr int kBelow = 12;
constexpr int kSide = 8;
constexpr int kMark = 16; ///< side of the mark of the selected skin
constexpr int kLock = 12;
constexpr double kCorner = 10;
constexpr int kWakeMilliseconds = 180;
constexpr double kRise = 4; ///< points by which the pot rises when it is unlocked

/// Returns a grey silhouette of the pot with little inner detail.
QImage silhouetteOf(const QImage& pot, const QColor& colour) {
    QImage silhouette = pot.convertToFormat(QImage::Format_ARGB32);
    for (int y = 0; y < silhouette.height(); ++y) {
        auto* const line = reinterpret_cast<QRgb*>(silhouette.scanLine(y));
        for (int x = 0; x < silhouette.width(); ++x) {
            const int light = (qGray(line[x]) - 96) / 6;
            const auto channel = [light](int value) { return qBound(0, value + light, 255); };
            line[x] = qRgba(channel(colour.red()), channel(colour.green()), channel(colour.blue()),
                            qAlpha(line[x]));
        }
    }
    return silhouette;
}

} // namespace

SkinCardView::SkinCardView(SkinCard card, QWidget* parent)
    : QRadioButton(parent), m_card(std::move(card)), m_ring(new FocusRing(*this)),
      m_awake(new Transition(*this, kWakeMilliseconds)) {
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    m_awake->setAt(m_card.isLocked ? 0 : 1);
    apply();
}

void SkinCardView::setCard(const SkinCard& card) {
    if (card == m_card)
        return;
    const bool wakes = m_card.isLocked && !card.isLocked;
    m_card = card;
    apply();
    if (wakes)
        m_awake->moveTo(1);
    else
        m_awake->setAt(card.isLocked ? 0 : 1);
}

void SkinCardView::apply() {
    setAccessibleName(m_card.name);
    setAccessibleDescription(m_card.help);
    setToolTip(m_card.help);
    setEnabled(!m_card.isLocked);
    setChecked(m_card.isChosen);
    update();
}

void SkinCardView::setAccent(const Accent& accent) {
    m_accent = accent;
    update();
}

/// Reports the choice; the progression decides which skin is selected.
void SkinCardView::nextCheckState() {
    emit chosen(*m_card.skin);
}

void SkinCardView::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        click();
    else
        QRadioButton::keyPressEvent(event);
}

/// A locked card is disabled but uses the active colours, so that it stays readable.
QPalette SkinCardView::colours() const {
    QPalette colours = palette();
    colours.setCurrentColorGroup(QPalette::Active);
    return colours;
}

Paragraph SkinCardView::name() const {
    return {m_card.name, textFont(font(), 12.5, QFont::DemiBold),
            m_card.isLocked ? secondaryText(colours()) : colours().color(QPalette::Text), 0, 1};
}

Paragraph SkinCardView::blurb() const {
    return {m_card.blurb, textFont(font(), 11), secondaryText(colours()), 3, 2};
}

QSize SkinCardView::sizeHint() const {
    const int name = QFontMetrics(this->name().font).height();
    const int line = QFontMetrics(blurb().font).height();
    return {kPot + 2 * (kSide + FocusRing::kRoom), 2 * FocusRing::kRoom + kAbove + kPot + kBetween +
                                                       name + blurb().gap + 2 * line + kBelow};
}

void SkinCardView::render() {
    const double ratio = devicePixelRatioF();
    if (!m_pot.isNull() && m_pot.devicePixelRatio() == ratio)
        return;
    m_pot = crispPicture(DockIconAnimator::iconOf(CauldronArt::idle(0, true, 0, *m_card.skin)),
                         kPot, ratio);
    const QColor ground = groundOf(colours());
    m_silhouette = silhouetteOf(
        m_pot, mixed(ground, colours().color(QPalette::Text), isDark(ground) ? 0.26 : 0.32));
}

void SkinCardView::paintSurface(QPainter& painter, const QRectF& surface) const {
    const QColor ground = groundOf(colours());
    const QColor text = colours().color(QPalette::Text);
    const bool touched = isEnabled() && (underMouse() || isDown());
    QColor fill = isDark(ground) ? mixed(ground, text, 0.04) : mixed(ground, Qt::white, 0.8);
    if (m_card.isChosen)
        fill = mixed(ground, m_accent.colour, 0.1);
    else if (touched)
        fill = mixed(ground, text, 0.07);
    const double width = m_card.isChosen ? 2 : 1;
    painter.setPen(QPen(m_card.isChosen ? m_accent.colour : hairline(colours()), width));
    painter.setBrush(fill);
    const double half = width / 2;
    painter.drawRoundedRect(surface.adjusted(half, half, -half, -half), kCorner, kCorner);
}

void SkinCardView::paintPot(QPainter& painter, const QRect& place) const {
    const double awake = m_awake->at();
    if (awake < 1) {
        painter.setOpacity(1 - awake);
        drawCentred(painter, place, m_silhouette);
    }
    if (awake > 0) {
        painter.setOpacity(awake);
        drawCentred(painter, QRectF(place).translated(0, kRise * (1 - awake)), m_pot);
    }
    painter.setOpacity(1);
}

void SkinCardView::paintName(QPainter& painter, const QRect& place) const {
    Paragraph name = this->name();
    if (!m_card.isLocked) {
        name.paint(painter, place, Qt::AlignHCenter);
        return;
    }
    const QFontMetrics metrics(name.font);
    constexpr int kGap = 4;
    name.text = metrics.elidedText(name.text, Qt::ElideRight, place.width() - kLock - kGap);
    const int text = metrics.horizontalAdvance(name.text) + 1;
    const int left = place.left() + (place.width() - kLock - kGap - text) / 2;
    const auto mirrored = [&](const QRect& rect) {
        return QStyle::visualRect(layoutDirection(), place, rect);
    };
    const int middle = place.top() + (metrics.height() - kLock) / 2;
    paintSymbol(painter, mirrored({left, middle, kLock, kLock}), Symbol::lock, name.colour);
    name.paint(painter, mirrored({left + kLock + kGap, place.top(), text, place.height()}));
}

void SkinCardView::paintEvent(QPaintEvent*) {
    render();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    constexpr int kRoom = FocusRing::kRoom;
    const QRect surface = rect().adjusted(kRoom, kRoom, -kRoom, -kRoom);
    paintSurface(painter, surface);
    const QRect inner = surface.adjusted(kSide, kAbove, -kSide, 0);
    paintPot(painter, {inner.left(), inner.top(), inner.width(), kPot});
    const QRect texts = inner.adjusted(0, kPot + kBetween, 0, 0);
    const int nameHeight = QFontMetrics(name().font).height();
    paintName(painter, {texts.left(), texts.top(), texts.width(), nameHeight});
    blurb().paint(painter, texts.adjusted(0, nameHeight, 0, 0), Qt::AlignHCenter);
    if (m_card.isChosen) {
        const QRect mark(surface.right() - kMark - 6, surface.top() + 7, kMark, kMark);
        paintSymbol(painter, QStyle::visualRect(layoutDirection(), rect(), mark),
                    Symbol::checkCircle, m_accent.colour);
    }
    m_ring->paint(painter, m_accent.colour, kCorner + 3);
}

void SkinCardView::changeEvent(QEvent* event) {
    if (event->type() == QEvent::PaletteChange)
        m_pot = {};
    if (event->type() == QEvent::FontChange)
        updateGeometry();
    QRadioButton::changeEvent(event);
}

} // namespace vexmoor
