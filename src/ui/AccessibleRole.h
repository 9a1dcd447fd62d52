#pragma once

#include <QAccessible>

class QWidget;

namespace vexmoor {

/// What screen readers take a plain widget for. Call it before a screen reader asks for the widget,
/// so in a constructor.
void setAccessibleRole(QWidget& widget, QAccessible::Role role);

} // namespace vexmoor
