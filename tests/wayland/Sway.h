#pragma once

#include "support/BackgroundProgram.h"
#include "support/TemporaryDirectory.h"

#include <QImage>
#include <QRect>

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace vexmoor::test {

/// A headless sway that belongs to the test. Drops root privileges.
class Sway {
  public:
    /// Returns the name of a required program that is not installed; nullopt if all are.
    static std::optional<std::string> missing();

    /// `outputs` are the configuration commands of each output: "resolution 1280x800".
    explicit Sway(const std::vector<std::string>& outputs = {"resolution 1280x800"});

    /// Returns WAYLAND_DISPLAY and DISPLAY for clients.
    [[nodiscard]] const BackgroundProgram::Environment& environment() const {
        return m_environment;
    }
    [[nodiscard]] std::string display() const { return m_environment.at("WAYLAND_DISPLAY"); }

    /// Runs a sway command; throws if it fails.
    std::string order(const std::string& command) const;
    /// Returns the tree of windows as JSON.
    [[nodiscard]] std::string tree() const { return run({"swaymsg", "-t", "get_tree"}); }
    /// Returns a screenshot of an output, in physical pixels.
    [[nodiscard]] QImage picture(const std::string& output = "HEADLESS-1") const;
    void keepPicture(const std::string& name, const QRect& part = {},
                     const std::string& output = "HEADLESS-1") const;

    void kill() { m_program->kill(); }

  private:
    std::string run(std::vector<std::string> words) const;

    TemporaryDirectory m_folder;
    BackgroundProgram::Environment m_environment;
    std::unique_ptr<BackgroundProgram> m_program;
};

} // namespace vexmoor::test
