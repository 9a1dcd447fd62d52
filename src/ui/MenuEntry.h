#pragma once

#include "Symbol.h"

#include <QString>

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace vexmoor {

/// One line of a menu as a value, whoever draws it.
struct MenuEntry {
    enum class Kind {
        header,    ///< the totals
        separator, ///< a line
        section,   ///< a title above the items that follow
        item,
        submenu, ///< opens `children`
    };

    Kind kind = Kind::item;
    QString title{}; ///< plain text; names of files among it
    std::function<void()> run{};
    std::optional<bool> checked{}; ///< of items that are switched on and off
    bool isChoice = false;         ///< exactly one of its menu is checked
    bool isEnabled = true;
    int indentation = 0; ///< levels
    std::optional<Symbol> symbol{};
    QString toolTip{};
    std::string subject{}; ///< what `run` works on, where titles do not tell
    std::vector<MenuEntry> children{};

    /// Whether both look the same and do the same.
    friend bool operator==(const MenuEntry& a, const MenuEntry& b) {
        return a.kind == b.kind && a.title == b.title && a.checked == b.checked &&
               a.isChoice == b.isChoice && a.isEnabled == b.isEnabled &&
               a.indentation == b.indentation && a.symbol == b.symbol && a.toolTip == b.toolTip &&
               a.subject == b.subject && a.children == b.children;
    }
};

} // namespace vexmoor
