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

    /// Waits until the tile stands on the screen; throws where it does not. `changes` to the
    /// environment.
    explicit Cauldron(DesktopSession& session,
                      const std::vector<std::string>& arguments = {"--background"},
                      const BackgroundProgram::Environment& changes = {});

    static BusObject application();
    /// Words that start it.
    static std::vector<std::string> words(const std::vector<std::string>& arguments);

    [[nodiscard]] std::optional<SeenWindow> tile() const;
    [[nodiscard]] QPoint middle() const { return tile().value().frame.center(); }
    /// The window in which flames rise, while they do.
    [[nodiscard]] std::optional<SeenWindow> flames() const;
    /// Waits until acid burns above the tile.
    [[nodiscard]] bool burns() const;
    [[nodiscard]] std::optional<SeenWindow> statsWindow() const;

    /// Waits for an alert with that sentence to which keys go.
    [[nodiscard]] bool alerts(const std::string& sentence) const;
    /// Whether an alert is on the screen.
    [[nodiscard]] bool isAlerting() const;
    /// What its alerts and windows say to a screen reader.
    [[nodiscard]] std::vector<AccessibleElement> elements() const;
    /// Waits for an element that is shown and whose name begins so; nothing where none comes.
    [[nodiscard]] std::optional<AccessibleElement> element(const std::string& beginning) const;

    /// The history as the command line has it, newest first.
    [[nodiscard]] nlohmann::json history() const;
    /// A setting as the command line prints it.
    [[nodiscard]] std::string setting(const std::string& name) const;
    /// A second start with these files, which the first carries out; its exit status.
    [[nodiscard]] int feed(const std::vector<Path>& items) const;
    /// Waits until the history has so many entries whose `fate` key is set or, without one, at all.
    [[nodiscard]] bool records(std::size_t count, const char* fate = nullptr) const;

    /// By the action of its desktop entry.
    void putBack() const;
    /// By the first entry of the tile's menu.
    void feedSelection() const;

    BackgroundProgram& program() { return m_program; }

  private:
    DesktopSession& m_session;
    BackgroundProgram m_program;
};

} // namespace vexmoor::test
