#include "SessionManager.h"

#include "base/FileDescriptor.h"

#include <X11/ICE/ICElib.h>
#include <X11/SM/SMlib.h>

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <map>
#include <stdexcept>
#include <thread>
#include <utility>
#include <vector>

namespace vexmoor::test {

/// Once its thread runs, only that thread uses the libraries.
class SessionManager::Server {
  public:
    Server() {
        std::array<char, 256> problem{};
        IceSetIOErrorHandler(
            [](IceConn) {}); // the default handler would exit when a client disconnects
        if (SmsInitialize("Test", "1", &Server::clientCame, this, &Server::letIn, problem.size(),
                          problem.data()) == 0 ||
            IceListenForConnections(&m_listenerCount, &m_listeners, problem.size(),
                                    problem.data()) == 0)
            throw std::runtime_error(problem.data());
        for (int i = 0; i < m_listenerCount; ++i)
            IceSetHostBasedAuthProc(m_listeners[i], &Server::letIn);
        char* const list = IceComposeNetworkIdList(m_listenerCount, m_listeners);
        m_address = list;
        std::free(list);
        std::array<int, 2> ends{};
        if (::pipe2(ends.data(), O_CLOEXEC) != 0)
            throw std::runtime_error("no pipe");
        m_orders = FileDescriptor(ends[0]);
        m_ordering = FileDescriptor(ends[1]);
        m_thread = std::thread([this] { serve(); });
    }
    ~Server() {
        order('q');
        m_thread.join();
        IceFreeListenObjs(m_listenerCount, m_listeners);
    }
    Server(const Server&) = delete;
    Server& operator=(const Server&) = delete;

    [[nodiscard]] const std::string& address() const { return m_address; }
    void order(char what) const {
        if (::write(m_ordering.get(), &what, 1) != 1)
            throw std::runtime_error("the session manager takes no orders");
    }

  private:
    static Bool letIn(char*) { return True; }

    static Status clientCame(SmsConn, SmPointer server, unsigned long* mask,
                             SmsCallbacks* callbacks, char**) {
        *mask = SmsRegisterClientProcMask | SmsInteractRequestProcMask | SmsInteractDoneProcMask |
                SmsSaveYourselfRequestProcMask | SmsSaveYourselfP2RequestProcMask |
                SmsSaveYourselfDoneProcMask | SmsCloseConnectionProcMask |
                SmsSetPropertiesProcMask | SmsDeletePropertiesProcMask | SmsGetPropertiesProcMask;
        *callbacks = {};
        callbacks->register_client = {&Server::clientRegisters, server};
        callbacks->interact_request.callback = [](SmsConn one, SmPointer, int) {
            SmsInteract(one);
        };
        callbacks->interact_done.callback = [](SmsConn, SmPointer, Bool) {};
        callbacks->save_yourself_request.callback = [](SmsConn, SmPointer, int, Bool, int, Bool,
                                                       Bool) {};
        callbacks->save_yourself_phase2_request.callback = [](SmsConn one, SmPointer) {
            SmsSaveYourselfPhase2(one);
        };
        callbacks->save_yourself_done = {&Server::clientIsSaved, server};
        callbacks->close_connection = {&Server::clientLeaves, server};
        callbacks->set_properties.callback = [](SmsConn, SmPointer, int count,
                                                SmProp** properties) {
            for (int i = 0; i < count; ++i)
                SmFreeProperty(properties[i]);
            std::free(properties);
        };
        callbacks->delete_properties.callback = [](SmsConn, SmPointer, int, char**) {};
        callbacks->get_properties.callback = [](SmsConn one, SmPointer) {
            SmsReturnProperties(one, 0, nullptr);
        };
        return 1;
    }
    static Status clientRegisters(SmsConn client, SmPointer server, char* previousId) {
        std::free(previousId);
        char* const id = SmsGenerateClientID(client);
        SmsRegisterClientReply(client, id);
        std::free(id);
        auto& self = *static_cast<Server*>(server);
        self.m_isSaving[client] = true;
        SmsSaveYourself(client, SmSaveLocal, False, SmInteractStyleNone, False);
        return 1;
    }
    static void clientIsSaved(SmsConn client, SmPointer server, Bool) {
        auto& self = *static_cast<Server*>(server);
        self.m_isSaving[client] = false;
        if (!self.m_isEnding)
            SmsSaveComplete(client);
        else if (self.m_hasBeenAsked[client])
            SmsDie(client);
        self.askAll();
    }
    static void clientLeaves(SmsConn client, SmPointer server, int count, char** reasons) {
        SmFreeReasons(count, reasons);
        auto& self = *static_cast<Server*>(server);
        self.m_isSaving.erase(client);
        const IceConn connection = SmsGetIceConnection(client);
        std::erase(self.m_connections, connection);
        SmsCleanUp(client);
        IceSetShutdownNegotiation(connection, False);
        IceCloseConnection(connection);
    }

    void askAll() {
        for (auto& [client, isSaving] : m_isSaving)
            if (m_isEnding && !isSaving && !std::exchange(m_hasBeenAsked[client], true)) {
                isSaving = true;
                SmsSaveYourself(client, SmSaveBoth, True, SmInteractStyleAny, False);
            }
    }

    void serve() {
        for (;;) {
            std::vector<pollfd> watched{{m_orders.get(), POLLIN, 0}};
            for (int i = 0; i < m_listenerCount; ++i)
                watched.push_back({IceGetListenConnectionNumber(m_listeners[i]), POLLIN, 0});
            const auto connections = m_connections;
            for (IceConn connection : connections)
                watched.push_back({IceConnectionNumber(connection), POLLIN, 0});
            if (::poll(watched.data(), watched.size(), -1) < 0)
                continue;
            char order = 0;
            if (watched[0].revents != 0 && ::read(m_orders.get(), &order, 1) == 1) {
                if (order == 'q')
                    return;
                m_isEnding = true;
                askAll();
            }
            for (int i = 0; i < m_listenerCount; ++i)
                if (watched[static_cast<std::size_t>(1 + i)].revents != 0)
                    accept(m_listeners[i]);
            const auto first = static_cast<std::size_t>(1 + m_listenerCount);
            for (std::size_t i = 0; i < connections.size(); ++i)
                if (watched[first + i].revents != 0 &&
                    std::ranges::find(m_connections, connections[i]) != m_connections.end())
                    process(connections[i]);
        }
    }
    void accept(IceListenObj listener) {
        IceAcceptStatus status{};
        if (IceConn connection = IceAcceptConnection(listener, &status))
            m_connections.push_back(connection);
    }
    void process(IceConn connection) {
        if (IceProcessMessages(connection, nullptr, nullptr) != IceProcessMessagesIOError)
            return;
        std::erase(m_connections, connection);
        std::erase_if(m_isSaving, [&](const auto& client) {
            return SmsGetIceConnection(client.first) == connection;
        });
        IceSetShutdownNegotiation(connection, False);
        IceCloseConnection(connection);
    }

    int m_listenerCount = 0;
    IceListenObj* m_listeners = nullptr;
    std::string m_address;
    FileDescriptor m_orders;
    FileDescriptor m_ordering;
    std::vector<IceConn> m_connections;
    std::map<SmsConn, bool> m_isSaving; ///< of each registered client
    std::map<SmsConn, bool> m_hasBeenAsked;
    bool m_isEnding = false;
    std::thread m_thread;
};

SessionManager::SessionManager() : m_server(std::make_unique<Server>()) {}

SessionManager::~SessionManager() = default;

const std::string& SessionManager::address() const {
    return m_server->address();
}

void SessionManager::endSession() {
    m_server->order('e');
}

} // namespace vexmoor::test
