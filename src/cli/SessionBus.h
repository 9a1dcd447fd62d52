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

/// A call of a method, to which arguments are added in their order. What can't be added, such as a
/// text that is not UTF-8, makes the sending fail.
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
    /// A dictionary of one text.
    void addEntry(const std::string& key, const std::string& text);

    /// Leaves a service that does not run as it is; else the bus may start it.
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

    // The next argument; nothing where it is something else.
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

/// A connection to the session bus. Its library is loaded when one is made first, since most
/// commands need none. One thread.
class SessionBus {
  public:
    /// Fails where there is no bus, or no library.
    static Result<SessionBus> connect();

    [[nodiscard]] BusCall call(const char* service, const char* path, const char* interface,
                               const char* method) const;

    static constexpr auto kForEver = std::chrono::microseconds::max();

    /// Waits for the answer; meanwhile `whileWaiting` is called about ten times a second. It may
    /// send too.
    std::variant<BusReply, BusError> send(BusCall call, std::chrono::microseconds limit,
                                          const std::function<void()>& whileWaiting = {});

    /// Sends it without an answer.
    void sendOnly(BusCall call);

  private:
    struct Release {
        void operator()(sd_bus* bus) const;
    };
    explicit SessionBus(sd_bus* bus) : m_bus(bus) {}

    std::unique_ptr<sd_bus, Release> m_bus;
};

} // namespace vexmoor
