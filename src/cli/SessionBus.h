#pragma once

#include "base/Result.h"

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

struct sd_bus;
struct sd_bus_message;

namespace vexmoor {

struct BusMessageRelease {
    void operator()(sd_bus_message* message) const;
};
using BusMessagePointer = std::unique_ptr<sd_bus_message, BusMessageRelease>;

/// A method call. Arguments are added in order. Sending fails if an argument cannot be encoded,
/// such as text that is not UTF-8.
class BusCall {
  public:
    void add(const std::string& text);
    void add(bool value);
    void add(std::uint32_t value);
    void add(std::int32_t value);
    void add(std::uint64_t value);
    void add(const std::vector<std::string>& texts);
    void add(const std::vector<std::uint64_t>& numbers);
    void addByteStrings(const std::vector<std::string>& items);
    /// Adds a dictionary with one text.
    void addEntry(const std::string& key, const std::string& text);

    /// Prevents the bus from starting the service if it does not run.
    void startNothing();

  private:
    friend class SessionBus;
    explicit BusCall(BusMessagePointer message) : m_message(std::move(message)) {}
    void note(int result) { m_error = m_error < 0 || result >= 0 ? m_error : result; }
    void addBasic(char type, const void* value);
    void open(char type, const char* contents);
    void close();

    BusMessagePointer m_message;
    int m_error = 0; ///< a negative errno
};

class BusReply {
  public:
    explicit BusReply(BusMessagePointer message) : m_message(std::move(message)) {}

    // These read the next argument; nullopt if it has another type.
    std::optional<std::string> text();
    std::optional<std::vector<std::string>> texts();
    std::optional<std::uint64_t> number();
    std::optional<bool> boolean();

  private:
    BusMessagePointer m_message;
};

struct BusError {
    std::string name; ///< "org.freedesktop.DBus.Error.NoReply"
    std::string message;
};

/// A connection to the session bus. The first connection loads the D-Bus library, since most
/// commands need none. Not thread-safe.
class SessionBus {
  public:
    /// Fails if there is no session bus or no library.
    static Result<SessionBus> connect();

    [[nodiscard]] BusCall call(const char* service, const char* path, const char* interface,
                               const char* method) const;

    static constexpr auto kForEver = std::chrono::microseconds::max();

    /// Sends the call and waits for the reply. Calls `whileWaiting` about ten times a second, which
    /// may send calls too.
    std::variant<BusReply, BusError> send(BusCall call, std::chrono::microseconds limit,
                                          const std::function<void()>& whileWaiting = {});

    /// Sends the call without waiting for a reply.
    void sendOnly(BusCall call);

  private:
    struct Release {
        void operator()(sd_bus* bus) const;
    };
    explicit SessionBus(sd_bus* bus) : m_bus(bus) {}

    std::unique_ptr<sd_bus, Release> m_bus;
};

} // namespace vexmoor
