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

/// A sway of the test's own, without a screen. It does not run as root: its rights are dropped.
class Sway {
  public:
    /// What must be installed for it and is not; nothing if all is there.
    static std::optional<std::string> missing();

    /// `outputs` are the configuration's words for each, after its name: "resolution 1280x800".
    explicit Sway(const std::vector<std::string>& outputs = {"resolution 1280x800"});

    /// WAYLAND_DISPLAY and DISPLAY for its clients.
    [[nodiscard]] const BackgroundProgram::Environment& environment() const {
        return m_environment;
    }
    [[nodiscard]] std::string display() const { return m_environment.at("WAYLAND_DISPLAY"); }

    /// Carries out a command of its own; throws if it fails.
    std::string order(const std::string& command) const;
    /// What it shows, as JSON.
    [[nodiscard]] std::string tree() const { return run({"swaymsg", "-t", "get_tree"}); }
    /// An output as it looks, in physical pixels.
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
