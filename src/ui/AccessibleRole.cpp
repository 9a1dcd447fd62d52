#include "AccessibleRole.h"

#include <QAccessibleWidget>
#include <QVariant>
#include <QWidget>

namespace vexmoor {
namespace {

constexpr const char* kProperty = "vexmoorAccessibleRole";

/// Qt calls factories for each class of an object, the most derived class first.
QAccessibleInterface* make(const QString&, QObject* object) {
    const QVariant role = object != nullptr ? object->property(kProperty) : QVariant();
    return role.isValid() && object->isWidgetType()
               ? new QAccessibleWidget(static_cast<QWidget*>(object),
                                       static_cast<QAccessible::Role>(role.toInt()))
               : nullptr;
}

} // namespace

void setAccessibleRole(QWidget& widget, QAccessible::Role role) {
    QAccessible::installFactory(&make); // installing it twice has no effect
    widget.setProperty(kProperty, static_cast<int>(role));
}

} // namespace vexmoor
