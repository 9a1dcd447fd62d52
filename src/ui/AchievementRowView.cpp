#include "AchievementRowView.h"

#include "AccessibleRole.h"
#include "CrispPicture.h"
#include "FocusRing.h"
#include "TextStyle.h"

#include "art/AchievementArt.h"

#include <QEvent>
#include <QPainter>
#include <QStyle>

#include <algorithm>
#include <utility>

namespace vexmoor {
namespace {

constexpr int kIcon = 32;
constexpr int kGap = 12;
constexpr int kAbove = 10;
constexpr int kBelow = 12;
constexpr int kBar = 4;
constexpr int kBarGap = 8;
constexpr int kTextLeft = AchievementRowView::kInset + kIcon + kGap;
constexpr double kLockedOpacity = 0.6;

} // namespace

AchievementRowView::AchievementRowView(AchievementRow row, QWidget* parent)
    : QWidget(parent), m_row(std::move(row)), m_ring(new FocusRing(*this)) {
    setAccessibleRole(*this, QAccessible::ListItem);
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
    speak();
}

void AchievementRowView::speak() {
    setAccessibleName(m_row.spoken());
    setAccessibleDescription(m_row.reward.isEmpty() ? m_row.flavour
                                                    : m_row.flavour + '\n' + m_row.reward);
}

void AchievementRowView::setRow(const AchievementRow& row) {
    if (row == m_row)
        return;
    if (row.icon != m_row.icon)
        m_icon = {};
    m_row = row;
    speak();
    updateGeometry();
    update();
}

void AchievementRowView::setAccent(const Accent& accent) {
    m_accent = accent;
    update();
}

/// Fades the colour of a locked row, but keeps it readable.
QColor AchievementRowView::faded(const QColor& colour) const {
    const QColor ground = groundOf(palette());
    if (m_row.isUnlocked)
        return colour;
    return Shades{colour, mixed(ground, colour, kLockedOpacity), colour}.readableOn(ground);
}

Paragraph AchievementRowView::title() const {
    return {m_row.title, textFont(font(), 13.5, QFont::DemiBold),
            faded(palette().color(QPalette::Text))};
}

Paragraph AchievementRowView::amount() const {
    QFont tabular = textFont(font(), 12);
    return {m_row.amount, tabular, faded(secondaryText(palette())), 1, 1};
}

int AchievementRowView::amountWidth() const {
    return QFontMetrics(amount().font).horizontalAdvance(m_row.amount) + 2;
}

std::vector<Paragraph> AchievementRowView::lines() const {
    const QFont font = textFont(this->font(), 12);
    return {{m_row.flavour, font, faded(secondaryText(palette())), 2},
            {m_row.reward, font, faded(m_accent.colour), 2}};
}

int AchievementRowView::titleHeight(int textWidth) const {
    return std::max(title().heightForWidth(textWidth - kGap - amountWidth()),
                    amount().heightForWidth(amountWidth()));
}

int AchievementRowView::heightForWidth(int width) const {
    const int textWidth = width - kTextLeft - kInset;
    const int texts = titleHeight(textWidth) + vexmoor::heightForWidth(lines(), textWidth);
    return kAbove + std::max(texts + kBarGap + kBar, kIcon) + kBelow + 1;
}

QSize AchievementRowView::sizeHint() const {
    return {320, heightForWidth(320)};
}

QSize AchievementRowView::minimumSizeHint() const {
    return {160, kAbove + kIcon + kBelow + 1};
}

void AchievementRowView::paintIcon(QPainter& painter, const QRect& square) {
    const double ratio = devicePixelRatioF();
    if (m_icon.isNull() || m_icon.devicePixelRatio() != ratio)
        m_icon = crispPicture(AchievementArt::render(m_row.icon, 1), kIcon, ratio);
    painter.setOpacity(m_row.isUnlocked ? 1 : kLockedOpacity);
    drawCentred(painter, square, m_icon);
    painter.setOpacity(1);
}

void AchievementRowView::paintBar(QPainter& painter, const QRect& bar) const {
    const QColor ground = groundOf(palette());
    const auto pill = [&](const QRectF& rect, const QBrush& brush) {
        painter.setBrush(brush);
        painter.drawRoundedRect(rect, kBar / 2.0, kBar / 2.0);
    };
    painter.setPen(Qt::NoPen);
    pill(bar, hairline(palette()));
    if (m_row.share <= 0)
        return;
    QRectF reached = bar;
    reached.setWidth(std::max<double>(kBar, bar.width() * m_row.share));
    if (layoutDirection() == Qt::RightToLeft)
        reached.moveRight(QRectF(bar).right());
    const double strength = m_row.isUnlocked ? 1 : kLockedOpacity;
    const bool mirrors = layoutDirection() == Qt::RightToLeft;
    QLinearGradient gradient(mirrors ? bar.right() : bar.left(), 0,
                             mirrors ? bar.left() : bar.right(), 0);
    gradient.setColorAt(0, mixed(ground, m_accent.colour, strength));
    gradient.setColorAt(1, mixed(ground, mixed(m_accent.colour, m_accent.glow, 0.7), strength));
    pill(reached, gradient);
}

void AchievementRowView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const auto mirrored = [this](const QRect& rect) {
        return QStyle::visualRect(layoutDirection(), this->rect(), rect);
    };
    paintIcon(painter, mirrored({kInset, kAbove + 1, kIcon, kIcon}));
    const int textWidth = width() - kTextLeft - kInset;
    const int top = titleHeight(textWidth);
    title().paint(painter, mirrored({kTextLeft, kAbove, textWidth - kGap - amountWidth(), top}));
    amount().paint(painter,
                   mirrored({width() - kInset - amountWidth(), kAbove, amountWidth(), top}),
                   Qt::AlignRight);
    const auto texts = lines();
    const int height = vexmoor::heightForWidth(texts, textWidth);
    vexmoor::paint(painter, mirrored({kTextLeft, kAbove + top, textWidth, height}), texts);
    paintBar(painter, mirrored({kTextLeft, kAbove + top + height + kBarGap, textWidth, kBar}));
    painter.fillRect(QRect(kInset, this->height() - 1, width() - 2 * kInset, 1),
                     hairline(palette()));
    m_ring->paint(painter, m_accent.colour, 8);
}

void AchievementRowView::changeEvent(QEvent* event) {
    if (event->type() == QEvent::FontChange)
        updateGeometry();
    QWidget::changeEvent(event);
}

} // namespace vexmoor
