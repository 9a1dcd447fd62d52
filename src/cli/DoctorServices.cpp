#include "Doctor.h"

#include "base/FileDescriptor.h"
#include "base/Path.h"
#include "base/Text.h"

#include <sys/socket.h>
#include <sys/un.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>

namespace vexmoor {

using Json = nlohmann::ordered_json;

namespace {

constexpr std::chrono::seconds kTimeout{2};
constexpr const char* kBus = "org.freedesktop.DBus";
constexpr const char* kNotifications = "org.freedesktop.Notifications";

/// The services on the session bus. Queries do not start them.
class Services {
  public:
    explicit Services(std::optional<SessionBus>& bus) : m_bus(bus) {
        if (auto reply = ask(kBus, "/org/freedesktop/DBus", kBus, "ListActivatableNames"))
            m_startable = reply->texts().value_or(std::vector<std::string>());
    }

    /// Returns "running", "startable" or "missing".
    [[nodiscard]] const char* state(const char* name) const {
        auto reply = ask(kBus, "/org/freedesktop/DBus", kBus, "NameHasOwner", name);
        if (reply && reply->boolean().value_or(false))
            return marked("running");
        const bool isStartable = std::ranges::find(m_startable, name) != m_startable.end();
        return isStartable ? marked("startable") : marked("missing");
    }

    [[nodiscard]] std::optional<BusReply> ask(const char* service, const char* path,
                                              const char* interface, const char* method,
                                              const char* argument = nullptr) const {
        if (!m_bus)
            return std::nullopt;
        auto call = m_bus->call(service, path, interface, method);
        call.startNothing();
        if (argument != nullptr)
            call.add(std::string(argument));
        auto answer = m_bus->send(std::move(call), kTimeout);
        auto* const reply = std::get_if<BusReply>(&answer);
        return reply != nullptr ? std::optional(std::move(*reply)) : std::nullopt;
    }

  private:
    std::optional<SessionBus>& m_bus;
    std::vector<std::string> m_startable;
};

bool listensAt(const Path& socket) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (socket.empty() || socket.native().size() >= sizeof address.sun_path)
        return false;
    std::memcpy(address.sun_path, socket.c_str(), socket.native().size());
    const FileDescriptor end(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
    return end &&
           ::connect(end.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
}

Path pulseSocket(const Path& runtime) {
    const char* const named = std::getenv("PULSE_SERVER");
    if (named == nullptr || *named == '\0')
        return runtime / "pulse/native";
    const std::string_view address = named;
    constexpr std::string_view kUnix = "unix:";
    if (address.starts_with(kUnix))
        return Path(address.substr(kUnix.size()));
    return address.starts_with('/') ? Path(address) : Path();
}

const char* soundServer() {
    const char* const runtime = std::getenv("XDG_RUNTIME_DIR");
    const Path folder = runtime != nullptr ? runtime : "";
    if (listensAt(pulseSocket(folder)))
        return "pulseaudio"; // or PipeWire's replacement for it
    return listensAt(folder / "pipewire-0") ? "pipewire" : "missing";
}

std::string soundText(const std::string& server) {
    if (server == "pulseaudio")
        return text("PulseAudio, or PipeWire in its place");
    return server == "pipewire" ? text("PipeWire without its PulseAudio server") : text("missing");
}

/// Returns the notification server's name and version, for example "dunst 1.9.0".
std::string notificationServer(const Services& services) {
    auto reply = services.ask(kNotifications, "/org/freedesktop/Notifications", kNotifications,
                              "GetServerInformation");
    if (!reply)
        return "";
    const auto name = reply->text();
    (void)reply->text(); // the vendor
    const auto version = reply->text();
    return name && version ? *name + " " + *version : "";
}

} // namespace

DoctorTopic doctorServices(DoctorContext& context) {
    const Services services(context.bus);
    const std::string accessibility = services.state("org.a11y.Bus");
    const std::string notifications = services.state(kNotifications);
    const std::string thumbnails = services.state("org.freedesktop.thumbnails.Thumbnailer1");
    const std::string tray = services.state("org.kde.StatusNotifierWatcher");
    const auto server = notificationServer(services);
    const std::string sound = soundServer();
    return {.key = "services",
            .title = text("Services"),
            .json = {{"accessibility", accessibility},
                     {"notifications", notifications},
                     {"notificationServer", server},
                     {"thumbnailer", thumbnails},
                     {"tray", tray},
                     {"sound", sound}},
            .lines = {{text("Accessibility bus"), text(accessibility)},
                      {text("Notifications"),
                       server.empty() ? text(notifications) : text(notifications) + ": " + server},
                      {text("Thumbnailer"), text(thumbnails)},
                      {text("Status icons"), text(tray)},
                      {text("Sound"), soundText(sound)}}};
}

} // namespace vexmoor
