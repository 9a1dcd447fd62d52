#include "Doctor.h"

#include "base/JsonReader.h"
#include "integration/Programs.h"
#include "platform/Processes.h"

#include <cstdlib>

namespace vexmoor {

using Json = nlohmann::ordered_json;

namespace {

constexpr std::chrono::seconds kTimeout{
    12}; ///< longer than the desktop program's own timeout for a running instance

Json desktopAnswer() {
    const auto program = desktopProgram();
    if (!program)
        return {};
    const auto output = outputOf(*program, {"--describe"}, {}, kTimeout);
    auto answer = Json::parse(output ? *output : std::string(), nullptr, false);
    return answer.is_object() ? answer : Json();
}

} // namespace

DoctorContext DoctorContext::ofProcess() {
    DoctorContext context;
    context.directories = UserDirectories::ofProcess();
    if (auto bus = SessionBus::connect())
        context.bus = *std::move(bus);
    context.desktop = desktopAnswer();
    auto defaults =
        SqliteUserDefaults::open(context.directories.ownData() / "defaults.db",
                                 SqliteUserDefaults::Access::readOnly, [](const Error&) {});
    if (defaults)
        context.defaults = *std::move(defaults);
    else
        context.defaultsError = defaults.error();
    return context;
}

Json DoctorContext::desktopValue(const std::string& pointer) const {
    const Json::json_pointer place(pointer);
    return desktop.contains(place) ? desktop.at(place) : Json();
}

std::string DoctorContext::desktopText(const std::string& pointer) const {
    const auto found = desktopValue(pointer);
    return found.is_string() ? found.get<std::string>() : "";
}

std::optional<bool> DoctorContext::desktopSwitch(const std::string& pointer) const {
    const auto found = desktopValue(pointer);
    return found.is_boolean() ? std::optional(found.get<bool>()) : std::nullopt;
}

std::string DoctorContext::sessionKind() const {
    const auto variable = [](const char* name) {
        const char* const value = std::getenv(name);
        return std::string(value != nullptr ? value : "");
    };
    const bool isWayland = desktopSwitch("/session/xwayland")
                               .value_or(!variable("WAYLAND_DISPLAY").empty() ||
                                         variable("XDG_SESSION_TYPE") == "wayland");
    if (isWayland)
        return "wayland";
    return variable("DISPLAY").empty() ? "none" : "x11";
}

} // namespace vexmoor
