#pragma once

#include <memory>
#include <string>

namespace vexmoor::test {

/// An XSMP session manager on its own thread.
class SessionManager {
  public:
    /// Throws if it cannot listen.
    SessionManager();
    ~SessionManager();

    /// Returns the value of SESSION_MANAGER for clients.
    [[nodiscard]] const std::string& address() const;

    /// Ends the session: asks all clients to save themselves, then sends "die" to each.
    void endSession();

  private:
    class Server;

    std::unique_ptr<Server> m_server;
};

} // namespace vexmoor::test
