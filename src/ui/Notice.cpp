#include "Notice.h"

#include "AccentButton.h"
#include "AccessibleRole.h"
#include "Symbol.h"
#include "TextStyle.h"

#include <QEvent>
#include <QPainter>
#include <QStyle>

#include <algorithm>

namespace vexmoor {
namespace {

constexpr int kPadding = 12;
constexpr int kSymbol = 16;
constexpr int kGap = 8;
constexpr int kTextLeft = kPadding + kSymbol + kGap;
constexpr int kButtonRing = 4; ///< margin of the button around its surface
constexpr double kCorner = 9;

const QColor kAmber(0xE0, 0x93, 0x0A);
const Shades kOnLight{QColor(0x5C, 0x39, 0x00), QColor(0x8A, 0x5A, 0x00), QColor(0x8A, 0x5A, 0x00)};
const Shades kOnDark{QColor(0xF5, 0xCB, 0x6B), QColor(0xF5, 0xCB, 0x6B), QColor(0xFF, 0xE9, 0xC0)};

} // namespace

Notice::Notice(const QString& text, const QString& button, QWidget* parent)
    : QWidget(parent), m_text(text) {
    setAccessibleRole(*this, QAccessible::AlertMessage);
    setAccessibleName(text);
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
    if (!button.isEmpty()) {
        m_button = new AccentButton(button, this, AccentButton::Kind::plain);
        m_button->setAccessibleDescription(text);
        connect(m_button, &QPushButton::clicked, this, &Notice::buttonPressed);
    }
    recolour();
}

QColor Notice::surface() const {
    const QColor ground =
        groundOf(parentWidget() != nullptr ? parentWidget()->palette() : palette());
    return mixed(ground, kAmber, isDark(ground) ? 0.2 : 0.16);
}

QColor Notice::textColour() const {
    const QColor ground = surface();
    return (isDark(ground) ? kOnDark : kOnLight).readableOn(ground);
}

/// The button is drawn on amber.
void Notice::recolour() {
    if (m_button == nullptr)
        return;
    const QColor text = textColour();
    QPalette colours = palette();
    colours.setColor(QPalette::Base, surface());
    colours.setColor(QPalette::Text, text);
    m_button->setPalette(colours);
    m_button->setAccent({text, text, surface(), text});
}

Paragraph Notice::paragraph() const {
    return {m_text, textFont(font(), 12.5), textColour()};
}

int Notice::textWidth(int width) const {
    return std::max(1, width - kTextLeft - kPadding);
}

int Notice::heightForWidth(int width) const {
    const int text = paragraph().heightForWidth(textWidth(width));
    const int button = m_button != nullptr ? kGap + m_button->sizeHint().height() - kButtonRing : 0;
    return kPadding + std::max(text, kSymbol) + button + kPadding - (button > 0 ? 4 : 0);
}

void Notice::place() {
    if (m_button == nullptr)
        return;
    const QSize size = m_button->sizeHint();
    const QRect place(kTextLeft - kButtonRing,
                      height() - size.height() - kPadding + kButtonRing + 4, size.width(),
                      size.height());
    m_button->setGeometry(QStyle::visualRect(layoutDirection(), rect(), place));
}

void Notice::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(surface());
    painter.drawRoundedRect(rect(), kCorner, kCorner);
    const Paragraph text = paragraph();
    const int line = QFontMetrics(text.font).height();
    const auto mirrored = [this](const QRect& rect) {
        return QStyle::visualRect(layoutDirection(), this->rect(), rect);
    };
    const int top = kPadding + (line - kSymbol) / 2;
    paintSymbol(painter, mirrored({kPadding, top, kSymbol, kSymbol}), Symbol::warning, text.colour);
    const int width = textWidth(this->width());
    text.paint(painter, mirrored({kTextLeft, kPadding, width, text.heightForWidth(width)}));
}

void Notice::resizeEvent(QResizeEvent*) {
    place();
}

void Notice::changeEvent(QEvent* event) {
    if (event->type() == QEvent::PaletteChange)
        recolour();
    if (event->type() == QEvent::FontChange)
        updateGeometry();
    if (event->type() == QEvent::FontChange || event->type() == QEvent::LayoutDirectionChange)
        place();
    QWidget::changeEvent(event);
}

} // namespace vexmoor
