#pragma once

#include "WindowFixture.h"

#include "support/MainLoop.h"

#include <QAccessible>

namespace vexmoor::test {

/// A tab in its own window, as screen readers and the keyboard see it.
struct TabFixture : WindowFixture {
    static QAccessibleInterface& face(QWidget* widget) {
        return *QAccessible::queryAccessibleInterface(widget);
    }
    static QString spoken(QWidget* widget) { return face(widget).text(QAccessible::Name); }
    static QString description(QWidget* widget) {
        return face(widget).text(QAccessible::Description);
    }

    /// Shows the tab and focuses the widget.
    static void focus(QWidget& tab, QWidget* widget) {
        tab.resize(360, 450);
        tab.show();
        tab.activateWindow();
        ASSERT_TRUE(eventuallyInLoop([&tab] { return tab.isActiveWindow(); }));
        widget->setFocus(Qt::TabFocusReason);
        ASSERT_TRUE(eventuallyInLoop([widget] { return widget->hasFocus(); }));
    }
};

} // namespace vexmoor::test
