#include "Description.h"

#include <QGuiApplication>
#include <QScreen>

#include <nlohmann/json.hpp>

#include <cmath>

namespace vexmoor {
namespace {

using Json = nlohmann::ordered_json;

const char* codeOf(TileChoice::Reason reason) {
    using Reason = TileChoice::Reason;
    switch (reason) {
    case Reason::compositorHasLayers:
        return "compositorHasLayers";
    case Reason::isX11:
        return "isX11";
    case Reason::isWanted:
        return "isWanted";
    case Reason::compositorLacksLayers:
        return "compositorLacksLayers";
    }
    return "";
}

const char* codeOf(TileHandling::Manager manager) {
    using Manager = TileHandling::Manager;
    switch (manager) {
    case Manager::windowManager:
        return "managed";
    case Manager::windowManagerWithFocus:
        return "managedWithFocus";
    case Manager::none:
        return "unmanaged";
    }
    return "";
}

Json versions() {
    return {{"version", VEXMOOR_VERSION}, {"qt", qVersion()}};
}

/// Returns the screens in physical pixels.
Json screens() {
    Json all = Json::array();
    for (const QScreen* screen : QGuiApplication::screens()) {
        const double scale = screen->devicePixelRatio();
        all.push_back({{"width", std::lround(screen->geometry().width() * scale)},
                       {"height", std::lround(screen->geometry().height() * scale)},
                       {"scale", scale}});
    }
    return all;
}

} // namespace

std::string describeSession(const std::optional<RunningTile>& tile) {
    const auto choice = TileChoice::forSession();
    Json json = versions();
    json["session"] = {{"platform", QGuiApplication::platformName().toStdString()},
                       {"xwayland", choice.facts.isXwayland},
                       {"windowManager", choice.facts.windowManager.toStdString()},
                       {"screens", screens()}};
    json["tile"] = {{"reason", codeOf(choice.reason)}};
    if (choice.isWindow())
        json["tile"]["handling"] = codeOf(tileHandling(choice.facts).manager);
    if (tile) {
        json["tile"]["shown"] = tile->isShown;
        json["tile"]["found"] = tile->isFound;
    }
    return json.dump(2) + "\n";
}

std::string describeMissing(const char* reason) {
    Json json = versions();
    json["tile"] = {{"reason", reason}};
    return json.dump(2) + "\n";
}

} // namespace vexmoor
