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

    [[nodiscard]] std::string address() const { return "unix:path=" + socket().string(); }
    [[nodiscard]] const Path& folder() const { return m_folder.path(); }

  private:
    [[nodiscard]] Path socket() const { return m_folder / "bus"; }
    [[nodiscard]] Path configuration() const;

    TemporaryDirectory m_folder;
    BackgroundProgram m_daemon;
};

} // namespace vexmoor::test
