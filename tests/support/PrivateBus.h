#pragma once

#include "support/BackgroundProgram.h"
#include "support/TemporaryDirectory.h"

namespace vexmoor::test {

/// A session bus of the test's own. It starts services that the test has described in the folder
/// "services", or those installed; they have their home in its folder.
class PrivateBus {
  public:
    enum class Services { own, installed };

    explicit PrivateBus(Services services = Services::own);

    /// Starts the services that are described in that folder, in that environment and nothing else.
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
