#pragma once

#include "DesktopSession.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace vexmoor::test {

/// A panel with a tray of status icons, and the menus that it shows of them.
class Tray {
  public:
    /// An item of a menu as the program hands it over.
    struct Item {
        int id = 0;
        std::string label; ///< empty for a line
        std::optional<bool> checked{};
        bool isEnabled = true;
        bool hasIcon = false;
        std::vector<Item> children{};
    };

    /// What must be installed for it and is not.
    static std::optional<std::string> missing();

    /// Starts the panel along the bottom of the screen.
    Tray(DesktopSession& session, bool isDark);

    /// How many icons there are.
    [[nodiscard]] int icons() const;
    /// Where the panel is on the screen.
    [[nodiscard]] std::optional<QRect> place() const;

    /// The menu of the first icon as it is when it opens.
    [[nodiscard]] std::vector<Item> menu() const;
    /// Its item of that label, among those of its submenus too; throws where there is none.
    [[nodiscard]] Item item(const std::string& label) const;
    [[nodiscard]] bool has(const std::string& label) const;
    void choose(const std::string& label) const;

  private:
    [[nodiscard]] BusObject menuOfFirst() const;

    DesktopSession& m_session;
    BackgroundProgram m_panel;
};

} // namespace vexmoor::test
