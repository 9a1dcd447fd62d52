#include "Commands.h"

#include "cli/ExitStatus.h"
#include "cli/HandOver.h"
#include "cli/Help.h"
#include "cli/Session.h"
#include "cli/Suggestion.h"
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

/// Returns the refusal of a value, for people and for programs.
Refusal refusalFor(const NamedSettings& settings, const Invocation& invocation,
                   NamedSettings::Complaint::Kind kind) {
    const bool isUsage = kind == NamedSettings::Complaint::Kind::usage;
    return {isUsage ? kUsage : kRefused, isUsage ? "usage" : "settingLocked", [&] {
                const auto sentence =
                    settings.complaintAbout(invocation.name, invocation.value)->sentence;
                return isUsage ? sentence + didYouMean(nearest(invocation.value,
                                                               settings.choices(invocation.name)))
                               : sentence;
            }};
}

/// Translates a refusal of the desktop application, which is in English.
Outcome inUsersLanguage(Outcome outcome, const Invocation& invocation) {
    const auto session = Session::openForReading();
    if (!std::holds_alternative<Refusal>(outcome) || !session)
        return outcome;
    const NamedSettings settings((*session)->settings(), (*session)->progression());
    const auto complaint = settings.complaintAbout(invocation.name, invocation.value);
    return complaint ? refusalFor(settings, invocation, complaint->kind) : outcome;
}

Outcome setHere(Session& session, const Invocation& invocation) {
    NamedSettings settings(session.settings(), session.progression());
    const auto complaint = settings.assign(invocation.name, invocation.value);
    if (const auto& error = session.storeError())
        return Refusal{kRefused, "settingNotSaved", *error, [](const std::string& why) {
                           return text("The setting could not be saved: %1", {why});
                       }};
    if (complaint)
        return refusalFor(settings, invocation, complaint->kind);
    return BatchReport();
}

Outcome set(Invocation invocation) {
    for (;;) {
        bool desktopRuns = false;
        const auto session = Session::openForWriting({.assumesYes = true}, desktopRuns);
        if (session)
            return setHere(**session, invocation);
        if (!desktopRuns)
            return Refusal{kRefused, "settingsNotOpened", session.error(),
                           [](const std::string& why) {
                               return text("The settings can't be changed: %1", {why});
                           }};
        if (auto outcome = handOver(invocation))
            return inUsersLanguage(*std::move(outcome), invocation);
    }
}

/// A usage error has no JSON document.
int refuse(const Refusal& refusal, bool asJson) {
    if (refusal.status == kUsage) {
        std::cerr << usageComplaint(*commandNamed("settings"), refusal.sentence);
        return kUsage;
    }
    complain(printable(refusal.sentence));
    if (asJson)
        std::cout << toJson(refusal).dump(2) << "\n";
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
        return refuse(
            {kRefused, "settingsNotRead", session.error(),
             [](const std::string& why) { return text("The settings can't be read: %1", {why}); }},
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
