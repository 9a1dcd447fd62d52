#include "Commands.h"

#include "cli/ExitStatus.h"
#include "cli/HandOver.h"
#include "cli/Session.h"
#include "intake/NamedSettings.h"

#include <nlohmann/json.hpp>

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

Outcome setHere(Session& session, const Invocation& invocation) {
    NamedSettings settings(session.settings(), session.progression());
    const auto complaint = settings.assign(invocation.name, invocation.value);
    if (const auto& error = session.storeError())
        return Refusal{kRefused, "The setting could not be saved: " + describe(*error)};
    if (complaint)
        return Refusal{complaint->kind == NamedSettings::Complaint::Kind::usage ? kUsage : kRefused,
                       complaint->sentence};
    return BatchReport();
}

Outcome set(Invocation invocation) {
    for (;;) {
        bool desktopRuns = false;
        const auto session = Session::openForWriting(true, desktopRuns);
        if (session)
            return setHere(**session, invocation);
        if (!desktopRuns)
            return Refusal{kRefused, "The settings can't be changed: " + describe(session.error())};
        if (auto outcome = handOver(invocation))
            return *std::move(outcome);
    }
}

/// Wrong usage has no document.
int refuse(const Refusal& refusal, bool asJson) {
    complain(printable(refusal.sentence));
    if (asJson && refusal.status != kUsage)
        std::cout << Json{{"error", displayText(refusal.sentence)}}.dump(2) << "\n";
    return refusal.status;
}

int change(const Invocation& invocation) {
    const auto outcome = set(invocation);
    const auto* const refusal = std::get_if<Refusal>(&outcome);
    if (refusal == nullptr)
        return kAllDone;
    return refuse(*refusal, invocation.json);
}

} // namespace

int runSettings(const Invocation& invocation) {
    if (!invocation.value.empty()) {
        const int status = change(invocation);
        if (status != kAllDone || !invocation.json)
            return status;
    }
    const auto session = Session::openForReading();
    if (!session)
        return refuse({kRefused, "The settings can't be read: " + describe(session.error())},
                      invocation.json);
    const Json all = settingsJson(**session);
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
