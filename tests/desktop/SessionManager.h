#pragma once

#include <memory>
#include <string>

namespace vexmoor::test {

/// A session manager that speaks XSMP to those who connect to it, on a thread of its own.
class SessionManager {
  public:
    /// Throws if it can't listen.
    SessionManager();
    ~SessionManager();

    /// What SESSION_MANAGER must be for its clients.
    [[nodiscard]] const std::string& address() const;

    /// Ends the session: has all clients save themselves, and each die that has.
    void endSession();

  private:
    class Server;

    std::unique_ptr<Server> m_server;
};

} // namespace vexmoor::test
