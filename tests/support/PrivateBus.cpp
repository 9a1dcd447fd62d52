#include "PrivateBus.h"

#include <stdexcept>

namespace vexmoor::test {

Path PrivateBus::configuration() const {
    return m_folder.write(
        "bus.conf",
        "<busconfig><type>session</type><listen>" + address() + "</listen><servicedir>" +
            (m_folder / "services").string() +
            "</servicedir><policy context=\"default\"><allow own=\"*\"/>"
            "<allow send_destination=\"*\" eavesdrop=\"true\"/><allow eavesdrop=\"true\"/>"
            "</policy></busconfig>");
}

PrivateBus::PrivateBus(Services services)
    : m_daemon({"dbus-daemon",
                services == Services::installed ? "--session"
                                                : "--config-file=" + configuration().string(),
                "--nofork", "--nopidfile", "--nosyslog", "--address=" + address()},
               {.environment = {{"HOME", folder()},
                                {"XDG_CACHE_HOME", folder() / "cache"},
                                {"XDG_CONFIG_HOME", folder() / "config"},
                                {"XDG_DATA_HOME", folder() / "data"},
                                {"XDG_RUNTIME_DIR", folder()},
                                {"DBUS_SESSION_BUS_ADDRESS", address()},
                                {"DISPLAY", ""},
                                {"WAYLAND_DISPLAY", ""}}}) {
    if (!eventually([this] { return listensAt(socket()); }))
        throw std::runtime_error("the bus does not start");
}

} // namespace vexmoor::test
