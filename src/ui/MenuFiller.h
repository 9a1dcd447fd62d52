#pragma once

#include "MenuEntry.h"

#include <QColor>
#include <QMenu>

#include <functional>
#include <vector>

namespace vexmoor {

/// The differences between menus that show the same entries.
struct MenuFiller {
    std::function<void(QMenu&)> addHeader;
    std::function<void(QMenu&, const QString& title)> addSection;
    std::function<QMenu*(QMenu& parent, const QString& title)> addSubmenu;
    QColor symbolColour;

    /// Appends the entries to the menu.
    void fill(QMenu& menu, const std::vector<MenuEntry>& entries) const;

  private:
    void addItem(QMenu& menu, const MenuEntry& entry) const;
};

/// Returns a title for QMenu: one line, truncated, with "&" escaped.
QString menuTitle(const MenuEntry& entry);

} // namespace vexmoor
