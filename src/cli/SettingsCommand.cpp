#include "Commands.h"

#include "cli/Desktop.h"
#include "cli/ExitStatus.h"
#include "cli/Session.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <iostream>

namespace vexmoor {

using Json = nlohmann::ordered_json;

namespace {

Json settingsJson(Session& session) {
    Json json = {{"mode", toRawValue(session.settings().mode.get())}};
    for (const auto& [name, setting] : Settings::switches())
        json[name] = (session.settings().*setting).get();
    json["skin"] = session.progression().progress().skin;
    return json;
}

std::string asText(const Json& value) {
    if (value.is_boolean())
        return value.get<bool>() ? "on" : "off";
    return value.get<std::string>();
}

std::optional<bool> switchValue(const std::string& text) {
    for (const char* on : {"on", "true", "yes", "1"})
        if (text == on)
            return true;
    for (const char* off : {"off", "false", "no", "0"})
        if (text == off)
            return false;
    return std::nullopt;
}

std::string skinIds(Session& session) {
    std::string ids;
    for (const auto& skin : session.progression().unlockedSkins())
        ids.append(ids.empty() ? "" : ", ").append(skin.id);
    return ids;
}

int complainOfValue(const std::string& name, const std::string& choices) {
    complain(name + " can be: " + choices + ".");
    return kUsage;
}

int selectSkin(Session& session, const std::string& id) {
    for (const auto& skin : session.progression().unlockedSkins())
        if (skin.id == id) {
            session.progression().select(skin);
            return kAllDone;
        }
    if (std::ranges::count(Skin::all(), id, &Skin::id) == 0)
        return complainOfValue("skin", skinIds(session));
    complain("The " + std::string(Skin::named(id).name) + " cauldron is still locked.");
    return kRefused;
}

int set(Session& session, const std::string& name, const std::string& value) {
    if (name == "skin")
        return selectSkin(session, value);
    if (name == "mode") {
        const auto mode = disposeModeFromRawValue(value);
        if (!mode)
            return complainOfValue(name, "bin, dissolve");
        session.settings().mode.set(*mode);
        return kAllDone;
    }
    const auto flag = switchValue(value);
    if (!flag)
        return complainOfValue(name, "on, off");
    for (const auto& [known, setting] : Settings::switches())
        if (name == known)
            (session.settings().*setting).set(*flag);
    return kAllDone;
}

int change(const Invocation& invocation) {
    bool desktopRuns = false;
    const auto session = Session::openForWriting(true, desktopRuns);
    if (desktopRuns)
        return handOver(invocation);
    if (!session) {
        complain("The settings can't be changed: " + printable(describe(session.error())));
        return kRefused;
    }
    const int status = set(**session, invocation.name, invocation.value);
    if (const auto& error = (*session)->storeError()) {
        complain("The setting could not be saved: " + printable(describe(*error)));
        return kRefused;
    }
    return status;
}

} // namespace

int runSettings(const Invocation& invocation) {
    const auto session = Session::openForReading();
    if (!session) {
        complain("The settings can't be read: " + printable(describe(session.error())));
        return kRefused;
    }
    const Json all = settingsJson(**session);
    if (!invocation.value.empty())
        return change(invocation);
    if (invocation.json)
        std::cout << (invocation.name.empty() ? all : Json{{invocation.name, all[invocation.name]}})
                         .dump(2)
                  << "\n";
    else if (!invocation.name.empty())
        std::cout << asText(all[invocation.name]) << "\n";
    else
        for (const auto& [name, value] : all.items())
            std::cout << name << " = " << asText(value) << "\n";
    return kAllDone;
}

} // namespace vexmoor
