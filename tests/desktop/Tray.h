#pragma once

#include "DesktopSession.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace vexmoor::test {

/// A panel with a tray of status icons and their menus.
class Tray {
  public:
    /// A menu item as exported by the program.
    struct Item {
        int id = 0;
        std::string label; ///< empty for a separator
        std::optional<bool> checked{};
        bool isEnabled = true;
        bool hasIcon = false;
        std::vector<Item> children{};
    };

    /// Returns the name of a required program that is not installed.
    static std::optional<std::string> missing();

    /// Starts the panel at the bottom of the screen.
    Tray(DesktopSession& session, bool isDark);

    /// Returns the number of icons.
    [[nodiscard]] int icons() const;
    /// Returns the panel's rectangle on the screen.
    [[nodiscard]] std::optional<QRect> place() const;

    /// Returns the first icon's menu in its state when opened.
    [[nodiscard]] std::vector<Item> menu() const;
    /// Returns the item with that label, also from submenus; throws if there is none.
    [[nodiscard]] Item item(const std::string& label) const;
    [[nodiscard]] bool has(const std::string& label) const;
    void choose(const std::string& label) const;

  private:
    [[nodiscard]] BusObject menuOfFirst() const;

    DesktopSession& m_session;
    BackgroundProgram m_panel;
};

} // namespace vexmoor::test
