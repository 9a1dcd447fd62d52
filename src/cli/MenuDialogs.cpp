#include "MenuDialogs.h"

#include "cli/SessionBus.h"
#include "integration/Quoting.h"

#include <algorithm>

namespace vexmoor {

namespace {

constexpr const char* kService = "org.freedesktop.Notifications";
constexpr const char* kPath = "/org/freedesktop/Notifications";
constexpr std::chrono::seconds kLimit{5};

bool readsMarkup(SessionBus& bus) {
    auto answer = bus.send(bus.call(kService, kPath, kService, "GetCapabilities"), kLimit);
    auto* const reply = std::get_if<BusReply>(&answer);
    const auto capabilities = reply != nullptr ? reply->texts() : std::nullopt;
    return capabilities && std::ranges::count(*capabilities, "body-markup") > 0;
}

} // namespace

void MenuDialogs::show() const {
    if (m_reports.empty())
        return;
    auto bus = SessionBus::connect();
    if (!bus)
        return;
    const bool escapes = readsMarkup(*bus);
    for (const auto& report : m_reports) {
        auto call = bus->call(kService, kPath, kService, "Notify");
        call.add(std::string("Vexmoor"));
        call.add(std::uint32_t{0}); // replaces no other notification
        call.add(std::string("org.vexmoor.Vexmoor"));
        call.add(report.message);
        call.add(escapes ? xmlEscaped(report.informative) : report.informative);
        call.add(std::vector<std::string>()); // no actions
        call.addEntry("desktop-entry", "org.vexmoor.Vexmoor");
        call.add(std::int32_t{-1}); // the server's default timeout
        (void)bus->send(std::move(call), kLimit);
    }
}

} // namespace vexmoor
