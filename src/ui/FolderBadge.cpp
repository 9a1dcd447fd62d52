#include "FolderBadge.h"

#include "Symbol.h"
#include "TextStyle.h"

#include "base/Text.h"

#include <QPainter>

#include <algorithm>

namespace vexmoor {
namespace {

constexpr int kFolder = 34;
constexpr int kBadge = 16;
constexpr int kGap = 4;
constexpr int kLeastWidth = 84;

} // namespace

QColor allowedColour(const QColor& ground) {
    return Shades{QColor(0x14, 0x6b, 0x30), QColor(0x2f, 0xa5, 0x4f), QColor(0x7e, 0xe2, 0x9a)}
        .readableOn(ground);
}

QColor refusedColour(const QColor& ground) {
    return Shades{QColor(0xa0, 0x1c, 0x1c), QColor(0xe0, 0x40, 0x3a), QColor(0xff, 0xa3, 0x9c)}
        .readableOn(ground);
}

FolderBadge::FolderBadge(const QString& name, bool ok, const Accent& accent, QWidget* parent)
    : QLabel(parent), m_name(name), m_ok(ok), m_accent(accent) {
    setTextFormat(Qt::PlainText);
    const std::string plain = name.toStdString();
    setText(QString::fromStdString(ok ? vexmoor::text("%1: allowed", {plain})
                                      : vexmoor::text("%1: not allowed", {plain})));
}

QFont FolderBadge::captionFont() const {
    return textFont(font(), 12);
}

QSize FolderBadge::sizeHint() const {
    const QFontMetrics metrics(captionFont());
    return {std::max(kLeastWidth, metrics.horizontalAdvance(m_name)),
            kFolder + kGap + metrics.height()};
}

void FolderBadge::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor ground = groundOf(palette());
    const QRectF folder((width() - kFolder) / 2.0, 0, kFolder, kFolder);
    paintSymbol(painter, folder, Symbol::folder, m_ok ? m_accent.colour : secondaryText(palette()));
    const QRectF badge(folder.right() - kBadge + 4, folder.bottom() - kBadge, kBadge, kBadge);
    painter.setPen(Qt::NoPen);
    painter.setBrush(ground);
    painter.drawEllipse(badge.adjusted(-1.5, -1.5, 1.5, 1.5));
    paintSymbol(painter, badge, m_ok ? Symbol::checkCircle : Symbol::crossCircle,
                m_ok ? allowedColour(ground) : refusedColour(ground));
    painter.setFont(captionFont());
    painter.setPen(secondaryText(palette()));
    painter.drawText(rect().adjusted(0, kFolder + kGap, 0, 0), Qt::AlignHCenter | Qt::AlignTop,
                     m_name);
}

} // namespace vexmoor
