#include "SettingRow.h"

#include "TextStyle.h"

#include <QEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyle>

#include <algorithm>

namespace vexmoor {
namespace {

constexpr int kPadding = 12; ///< above and below the texts
constexpr int kGap = 16;     ///< between texts and switch

} // namespace

SettingRow::SettingRow(QWidget* parent) : QWidget(parent), m_switch(new Switch(this)) {
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
    connect(m_switch, &QCheckBox::clicked, this, &SettingRow::switched);
}

void SettingRow::setTexts(const QString& label, const QString& caption) {
    if (label == m_label && caption == m_caption)
        return;
    m_label = label;
    m_caption = caption;
    m_switch->setAccessibleName(label);
    m_switch->setAccessibleDescription(caption);
    updateGeometry();
    update();
}

void SettingRow::setOn(bool isOn) {
    m_switch->setChecked(isOn);
}

void SettingRow::setPossible(bool isPossible) {
    if (isPossible != m_switch->isHidden())
        return;
    m_switch->setVisible(isPossible);
    // With a switch, screen readers read the texts from the switch.
    setAccessibleName(isPossible ? QString() : m_label);
    setAccessibleDescription(isPossible ? QString() : m_caption);
    updateGeometry();
    update();
}

std::vector<Paragraph> SettingRow::texts() const {
    return {{m_label, textFont(font(), 13.5), palette().color(QPalette::Text)},
            {m_caption, textFont(font(), 12), secondaryText(palette()), 2}};
}

int SettingRow::textWidth(int width) const {
    const int all = width - 2 * kInset;
    return m_switch->isHidden() ? all : all - m_switch->sizeHint().width() - kGap;
}

int SettingRow::heightForWidth(int width) const {
    const int texts = vexmoor::heightForWidth(this->texts(), textWidth(width));
    return 2 * kPadding + std::max(texts, m_switch->sizeHint().height() - 8) + 1;
}

void SettingRow::place() {
    const QSize size = m_switch->sizeHint();
    const QRect right(width() - size.width(), (height() - 1 - size.height()) / 2, size.width(),
                      size.height());
    m_switch->setGeometry(QStyle::visualRect(layoutDirection(), rect(), right));
}

void SettingRow::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const auto texts = this->texts();
    const int width = textWidth(this->width());
    const int height = vexmoor::heightForWidth(texts, width);
    const QRect left(kInset, (this->height() - 1 - height) / 2, width, height);
    vexmoor::paint(painter, QStyle::visualRect(layoutDirection(), rect(), left), texts);
    painter.fillRect(kInset, this->height() - 1, this->width() - 2 * kInset, 1,
                     hairline(palette()));
}

void SettingRow::resizeEvent(QResizeEvent*) {
    place();
}

void SettingRow::mousePressEvent(QMouseEvent* event) {
    event->setAccepted(event->button() == Qt::LeftButton && !m_switch->isHidden());
}

void SettingRow::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && rect().contains(event->pos()))
        m_switch->click();
}

void SettingRow::changeEvent(QEvent* event) {
    if (event->type() == QEvent::FontChange)
        updateGeometry();
    else if (event->type() == QEvent::LayoutDirectionChange)
        place();
    QWidget::changeEvent(event);
}

} // namespace vexmoor
