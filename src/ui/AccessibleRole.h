#pragma once

#include <QAccessible>

class QWidget;

namespace vexmoor {

/// Sets the role of a plain widget for screen readers. Must be called before its accessible
/// interface is created, that is, in the constructor.
void setAccessibleRole(QWidget& widget, QAccessible::Role role);

} // namespace vexmoor
