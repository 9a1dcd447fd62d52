#pragma once

#include "AccessibleTree.h"
#include "DesktopSession.h"

#include <nlohmann/json.hpp>

#include <string>
#include <vector>

namespace vexmoor::test {

/// The built program, running in a session.
class Cauldron {
  public:
    static constexpr const char* kName = "org.vexmoor.Vexmoor";

    /// Waits until the tile is shown; throws if it does not appear. `changes` are applied to the
    /// environment.
    explicit Cauldron(DesktopSession& session,
                      const std::vector<std::string>& arguments = {"--background"},
                      const BackgroundProgram::Environment& changes = {});

    static BusObject application();
    /// Returns the command that starts it.
    static std::vector<std::string> words(const std::vector<std::string>& arguments);

    [[nodiscard]] std::optional<SeenWindow> tile() const;
    [[nodiscard]] QPoint middle() const { return tile().value().frame.center(); }
    /// Returns the flame window while it is shown.
    [[nodiscard]] std::optional<SeenWindow> flames() const;
    /// Waits until flames are shown above the tile.
    [[nodiscard]] bool burns() const;
    [[nodiscard]] std::optional<SeenWindow> statsWindow() const;

    /// Waits for an alert with that sentence and keyboard focus.
    [[nodiscard]] bool alerts(const std::string& sentence) const;
    /// True if an alert is shown.
    [[nodiscard]] bool isAlerting() const;
    /// Returns the elements of its windows and alerts as seen by a screen reader.
    [[nodiscard]] std::vector<AccessibleElement> elements() const;
    /// Waits for a visible element whose name begins with the text; nullopt if there is none.
    [[nodiscard]] std::optional<AccessibleElement> element(const std::string& beginning) const;

    /// Returns the history as JSON from the command line, newest first.
    [[nodiscard]] nlohmann::json history() const;
    /// Returns a setting as printed by the command line.
    [[nodiscard]] std::string setting(const std::string& name) const;
    /// Starts the program again with these files, which the first instance feeds; returns the exit
    /// status.
    [[nodiscard]] int feed(const std::vector<Path>& items) const;
    /// Waits until the history has that many entries, or that many with the key `fate`.
    [[nodiscard]] bool records(std::size_t count, const char* fate = nullptr) const;

    /// Uses the action of the desktop entry.
    void putBack() const;
    /// Uses the first entry of the tile's menu.
    void feedSelection() const;

    BackgroundProgram& program() { return m_program; }

  private:
    DesktopSession& m_session;
    BackgroundProgram m_program;
};

} // namespace vexmoor::test
