#pragma once

#include "Symbol.h"

#include <QString>

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace vexmoor {

/// A menu entry as a value, independent of how it is drawn.
struct MenuEntry {
    enum class Kind {
        header,    ///< the totals
        separator, ///< a separating line
        section,   ///< a title above the following items
        item,
        submenu, ///< opens `children`
    };

    Kind kind = Kind::item;
    QString title{}; ///< plain text; may contain file names
    std::function<void()> run{};
    std::optional<bool> checked{}; ///< for items that can be toggled
    bool isChoice = false;         ///< one of a group with exactly one checked item
    bool isEnabled = true;
    int indentation = 0; ///< levels
    std::optional<Symbol> symbol{};
    QString toolTip{};
    std::string subject{}; ///< what `run` acts on, if titles are ambiguous
    std::vector<MenuEntry> children{};

    /// True if both look and act the same.
    friend bool operator==(const MenuEntry& a, const MenuEntry& b) {
        return a.kind == b.kind && a.title == b.title && a.checked == b.checked &&
               a.isChoice == b.isChoice && a.isEnabled == b.isEnabled &&
               a.indentation == b.indentation && a.symbol == b.symbol && a.toolTip == b.toolTip &&
               a.subject == b.subject && a.children == b.children;
    }
};

} // namespace vexmoor
