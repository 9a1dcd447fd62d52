#include "RovingFocus.h"

#include <QKeyEvent>
#include <QWidget>

#include <algorithm>
#include <utility>

namespace vexmoor {

RovingFocus::RovingFocus(std::vector<QWidget*> widgets, std::function<int()> columns,
                         QObject* parent)
    : QObject(parent), m_widgets(std::move(widgets)), m_columns(std::move(columns)) {
    for (QWidget* const widget : m_widgets)
        widget->installEventFilter(this);
    if (!m_widgets.empty())
        setStop(m_widgets.front());
}

void RovingFocus::setStop(QWidget* stop) {
    for (QWidget* const widget : m_widgets)
        widget->setFocusPolicy(widget == stop ? Qt::StrongFocus : Qt::ClickFocus);
}

bool RovingFocus::move(QWidget* from, int key) {
    const bool mirrored = from->layoutDirection() == Qt::RightToLeft;
    const auto count = static_cast<int>(m_widgets.size());
    const auto at = static_cast<int>(std::ranges::find(m_widgets, from) - m_widgets.begin());
    int step = 0;
    int next = at;
    switch (key) {
    case Qt::Key_Left:
    case Qt::Key_Right:
        step = (key == Qt::Key_Right) != mirrored ? 1 : -1;
        break;
    case Qt::Key_Up:
    case Qt::Key_Down:
        step = key == Qt::Key_Down ? m_columns() : -m_columns();
        break;
    case Qt::Key_Home:
        next = -1;
        step = 1;
        break;
    case Qt::Key_End:
        next = count;
        step = -1;
        break;
    default:
        return false;
    }
    for (next += step; next >= 0 && next < count; next += step) {
        QWidget* const widget = m_widgets[static_cast<std::size_t>(next)];
        if (widget->isEnabled()) {
            widget->setFocus(Qt::TabFocusReason);
            break;
        }
    }
    return true;
}

bool RovingFocus::eventFilter(QObject* watched, QEvent* event) {
    auto* const widget = qobject_cast<QWidget*>(watched);
    if (event->type() == QEvent::KeyPress) {
        const auto* const pressed = static_cast<QKeyEvent*>(event);
        const auto others = pressed->modifiers() & ~Qt::KeypadModifier;
        return others == Qt::NoModifier && move(widget, pressed->key());
    }
    if (event->type() == QEvent::FocusIn) {
        setStop(widget);
        emit moved(widget);
    }
    return QObject::eventFilter(watched, event);
}

} // namespace vexmoor
