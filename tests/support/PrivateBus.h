#pragma once

#include "support/BackgroundProgram.h"
#include "support/TemporaryDirectory.h"

namespace vexmoor::test {

/// A private session bus. It activates services described in the folder "services", or installed
/// ones; its folder is their home.
class PrivateBus {
  public:
    enum class Services { own, installed };

    explicit PrivateBus(Services services = Services::own);

    /// Activates the services described in that folder, with only the given environment.
    PrivateBus(const Path& services, const BackgroundProgram::Environment& environment);

    void die() { m_daemon.kill(); }

    [[nodiscard]] std::string address() const { return "unix:path=" + socket().string(); }
    [[nodiscard]] const Path& folder() const { return m_folder.path(); }

  private:
    [[nodiscard]] Path socket() const { return m_folder / "bus"; }
    [[nodiscard]] std::vector<std::string> words(const std::string& configuration) const;
    [[nodiscard]] Path configuration(const Path& services) const;
    void waitForIt() const;

    TemporaryDirectory m_folder;
    BackgroundProgram m_daemon;
};

} // namespace vexmoor::test
