#include "Doctor.h"

#include "base/Text.h"

#include <cstdlib>

namespace vexmoor {

using Json = nlohmann::ordered_json;

namespace {

std::string sentenceOfKind(const std::string& kind, bool hasXwayland) {
    if (kind == "wayland")
        return hasXwayland ? text("Wayland, with XWayland") : text("Wayland, without XWayland");
    return kind == "x11" ? "X11" : text("none");
}

std::string orUnknown(const std::string& name) {
    return name.empty() ? text("unknown") : name;
}

/// Returns, for example, "2560 × 1440 at scale 1.5".
std::string screenText(const Json& screen) {
    return text("%1 × %2 at scale %3", {std::to_string(screen.value("width", 0)),
                                        std::to_string(screen.value("height", 0)),
                                        Json(screen.value("scale", 1.0)).dump()});
}

} // namespace

DoctorTopic doctorSession(const DoctorContext& context) {
    const auto kind = context.sessionKind();
    const bool hasXwayland = context.desktopSwitch("/session/xwayland").value_or(false);
    const char* const named = std::getenv("XDG_CURRENT_DESKTOP");
    const std::string desktop = named != nullptr ? named : "";
    const auto manager = context.desktopText("/session/windowManager");
    auto screens = context.desktopValue("/session/screens");
    if (!screens.is_array())
        screens = Json::array();
    DoctorTopic topic{
        .key = "session",
        .title = text("Session"),
        .json = {{"kind", kind},
                 {"desktop", desktop},
                 {"xwayland", hasXwayland},
                 {"windowManager", manager},
                 {"bus", context.bus.has_value()},
                 {"screens", screens}},
        .lines = {{text("Kind"), sentenceOfKind(kind, hasXwayland)},
                  {text("Desktop"), orUnknown(desktop)},
                  {text("Window manager"), orUnknown(manager)},
                  {text("Session bus"), context.bus ? text("answers") : text("does not answer")}}};
    for (const auto& screen : screens)
        topic.lines.push_back({text("Screen"), screenText(screen)});
    return topic;
}

} // namespace vexmoor
