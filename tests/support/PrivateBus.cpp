#include "PrivateBus.h"

#include <stdexcept>

namespace vexmoor::test {

Path PrivateBus::configuration(const Path& services) const {
    return m_folder.write(
        "bus.conf",
        "<busconfig><type>session</type><listen>" + address() + "</listen><servicedir>" +
            services.string() +
            "</servicedir><policy context=\"default\"><allow own=\"*\"/>"
            "<allow send_destination=\"*\" eavesdrop=\"true\"/><allow eavesdrop=\"true\"/>"
            "</policy></busconfig>");
}

std::vector<std::string> PrivateBus::words(const std::string& configuration) const {
    return {"dbus-daemon", configuration, "--nofork",
            "--nopidfile", "--nosyslog",  "--address=" + address()};
}

PrivateBus::PrivateBus(Services services)
    : m_daemon(words(services == Services::installed
                         ? "--session"
                         : "--config-file=" + configuration(folder() / "services").string()),
               {.environment = {{"HOME", folder()},
                                {"XDG_CACHE_HOME", folder() / "cache"},
                                {"XDG_CONFIG_HOME", folder() / "config"},
                                {"XDG_DATA_HOME", folder() / "data"},
                                {"XDG_RUNTIME_DIR", folder()},
                                {"DBUS_SESSION_BUS_ADDRESS", address()},
                                {"DISPLAY", ""},
                                {"WAYLAND_DISPLAY", ""}}}) {
    waitForIt();
}

PrivateBus::PrivateBus(const Path& services, const BackgroundProgram::Environment& environment)
    : m_daemon(words("--config-file=" + configuration(services).string()),
               {.environment = environment, .hasOnlyEnvironment = true, .errors = "/dev/null"}) {
    waitForIt();
}

void PrivateBus::waitForIt() const {
    if (!eventually([this] { return listensAt(socket()); }))
        throw std::runtime_error("the bus does not start");
}

} // namespace vexmoor::test
