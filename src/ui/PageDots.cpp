#include "PageDots.h"

#include "TextStyle.h"

#include "base/Text.h"

#include <QPainter>

namespace vexmoor {
namespace {

constexpr int kDot = 7;
constexpr int kPitch = 14;

} // namespace

PageDots::PageDots(int pages, QWidget* parent) : QLabel(parent), m_pages(pages) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setPage(0);
}

void PageDots::setPage(int page) {
    m_page = page;
    setText(QString::fromStdString(
        vexmoor::text("Page %1 of %2", {std::to_string(page + 1), std::to_string(m_pages)})));
    update();
}

QSize PageDots::sizeHint() const {
    return {kPitch * (m_pages - 1) + kDot, kDot};
}

void PageDots::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    QColor other = secondaryText(palette());
    other.setAlphaF(0.3F);
    for (int page = 0; page < m_pages; ++page) {
        const int place = layoutDirection() == Qt::RightToLeft ? m_pages - 1 - page : page;
        painter.setBrush(page == m_page ? palette().color(QPalette::Text) : other);
        painter.drawEllipse(QRectF(place * kPitch, 0, kDot, kDot));
    }
}

} // namespace vexmoor
