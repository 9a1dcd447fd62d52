#include "QuitEvents.h"

#include <QCoreApplication>
#include <QEvent>

namespace vexmoor {

QuitEvents::QuitEvents() {
    QCoreApplication::instance()->installEventFilter(this);
}

bool QuitEvents::eventFilter(QObject* object, QEvent* event) {
    if (object != QCoreApplication::instance() || event->type() != QEvent::Quit)
        return QObject::eventFilter(object, event);
    emit endRequested();
    return true;
}

} // namespace vexmoor
