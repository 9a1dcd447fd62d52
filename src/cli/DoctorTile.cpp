#include "Doctor.h"

#include "base/Text.h"

#include <algorithm>
#include <span>

namespace vexmoor {

using Json = nlohmann::ordered_json;

namespace {

struct Words {
    const char* code;
    const char* sentence;
};

// How the tile is shown and why: texts for the codes in the desktop program's answer.
constexpr Words kReasons[] = {
    {"compositorHasLayers", marked("by the compositor itself, which has zwlr_layer_shell_v1")},
    {"isX11", marked("as a window, since the session is one of X11")},
    {"isWanted", marked("as a window of XWayland, since VEXMOOR_TILE says so")},
    {"compositorLacksLayers",
     marked("as a window of XWayland, since the compositor has no zwlr_layer_shell_v1")},
    {"noXwayland", marked("not at all: the session has no XWayland, which other windows need")},
    {"noDisplay", marked("not at all: there is no display")},
};

constexpr Words kHandlings[] = {
    {"managed", marked("managed by the window manager")},
    {"managedWithFocus", marked("managed, and able to have the focus")},
    {"unmanaged", marked("not managed")},
};

std::string sentenceOf(std::span<const Words> all, const std::string& code) {
    const auto found = std::ranges::find(all, code, &Words::code);
    return found != all.end() ? text(found->sentence) : "";
}

std::string stateText(std::optional<bool> isShown) {
    if (!isShown)
        return text("vexmoor-desktop does not run");
    return *isShown ? text("shown") : text("hidden");
}

} // namespace

DoctorTopic doctorTile(const DoctorContext& context) {
    const auto reason = context.desktopText("/tile/reason");
    const auto way = sentenceOf(kReasons, reason);
    const auto handling = sentenceOf(kHandlings, context.desktopText("/tile/handling"));
    const auto isShown = context.desktopSwitch("/tile/shown");
    DoctorTopic topic{
        .key = "tile",
        .title = text("Tile"),
        .json = context.desktopValue("/tile"),
        .lines = {
            {text("Way"), way.empty() ? text("unknown: vexmoor-desktop does not answer") : way}}};
    topic.json["running"] = isShown.has_value();
    if (!handling.empty())
        topic.lines.push_back({text("Window"), handling});
    topic.lines.push_back({text("State"), stateText(isShown)});
    if (const auto isFound = context.desktopSwitch("/tile/found"))
        topic.lines.push_back(
            {text("Flames"), *isFound ? text("can rise above it") : text("stay within it")});
    return topic;
}

} // namespace vexmoor
