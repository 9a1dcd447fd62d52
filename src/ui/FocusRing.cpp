#include "FocusRing.h"

#include <QFocusEvent>
#include <QWidget>

namespace vexmoor {

FocusRing::FocusRing(QWidget& widget) : QObject(&widget), m_widget(widget) {
    widget.installEventFilter(this);
}

bool FocusRing::isShown() const {
    return m_byKeyboard && m_widget.hasFocus();
}

void FocusRing::paint(QPainter& painter, const QColor& colour, double corner) const {
    if (!isShown())
        return;
    painter.setPen(QPen(colour, 2));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(m_widget.rect().adjusted(1, 1, -1, -1), corner, corner);
}

bool FocusRing::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress && !m_byKeyboard) {
        m_byKeyboard = true;
        m_widget.update();
    } else if (event->type() == QEvent::FocusIn) {
        const auto reason = static_cast<QFocusEvent*>(event)->reason();
        if (reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason)
            m_byKeyboard = reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason ||
                           reason == Qt::ShortcutFocusReason;
        m_widget.update();
    } else if (event->type() == QEvent::FocusOut) {
        m_widget.update();
    }
    return QObject::eventFilter(watched, event);
}

} // namespace vexmoor
