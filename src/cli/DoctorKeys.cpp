#include "Doctor.h"

#include "base/SqliteUserDefaults.h"
#include "base/Text.h"
#include "disposal/Settings.h"
#include "integration/ManagerIntegration.h"

namespace vexmoor {

using Json = nlohmann::ordered_json;

namespace {

// The key under which src/finder/Automation.cpp stores the user's consent.
constexpr const char* kConsent = "automation";

/// Why the key may feed or not, for all file managers.
struct Permission {
    bool isOn = true;     ///< the setting
    std::string consent;  ///< "granted", "denied" or "notAsked"
    bool canGrab = false; ///< only on X11

    static Permission of(const DoctorContext& context) {
        Permission result;
        result.consent = "notAsked";
        result.canGrab = context.sessionKind() == "x11";
        if (context.defaults) {
            result.isOn = Settings(*context.defaults).captureFinderDelete.get();
            result.consent = context.defaults->string(kConsent).value_or(result.consent);
        }
        return result;
    }
};

std::string sentenceOfConsent(const std::string& consent) {
    if (consent == "granted")
        return text("allowed");
    return consent == "denied" ? text("not allowed") : text("not asked yet");
}

/// Returns how Ctrl+Backspace works in one file manager: "accelerator", "grab", "menu" or "none".
const char* wayOf(const KeyState& key, bool hasMenu, const Permission& permission) {
    if (key.status == AcceleratorStatus::installed)
        return "accelerator";
    const bool isLeftToUser = key.status == AcceleratorStatus::taken;
    if (permission.canGrab && permission.isOn && !isLeftToUser)
        return "grab";
    return hasMenu ? "menu" : "none";
}

std::string sentenceOf(const std::string& way, const KeyState& key) {
    if (key.error)
        return text("unknown");
    if (way == "accelerator")
        return key.waitsForRestart ? text("bound by the file manager after its next start")
                                   : text("bound by the file manager");
    if (way == "grab")
        return text("captured");
    const bool isTaken = key.status == AcceleratorStatus::taken;
    if (way == "menu")
        return isTaken ? text("by the menu entry only; the key is bound to something else there")
                       : text("by the menu entry only");
    return text("neither key nor menu entry");
}

bool hasMenuEntry(const ManagerIntegration& integration) {
    const auto menu = integration.menu();
    const auto status = menu ? menu->status() : Result(IntegrationStatus::notInstalled);
    return status && *status == IntegrationStatus::installed;
}

} // namespace

DoctorTopic doctorKeys(const DoctorContext& context) {
    const auto permission = Permission::of(context);
    DoctorTopic topic{.key = "key",
                      .title = text("Ctrl+Backspace in file managers"),
                      .json = {{"setting", permission.isOn},
                               {"consent", permission.consent},
                               {"capture", permission.canGrab},
                               {"fileManagers", Json::array()}},
                      .lines = {{text("Setting"), permission.isOn ? text("on") : text("off")},
                                {text("Consent"), sentenceOfConsent(permission.consent)}}};
    const auto integrationContext = IntegrationContext::ofProcess();
    for (const auto& manager : kFileManagers) {
        const ManagerIntegration integration(manager, integrationContext);
        if (!integration.isInstalled())
            continue;
        const auto key = integration.key();
        const bool hasMenu = hasMenuEntry(integration);
        const std::string way = wayOf(key, hasMenu, permission);
        topic.json["fileManagers"].push_back({{"id", std::string(manager.id)},
                                              {"way", key.error ? "unknown" : way},
                                              {"menu", hasMenu},
                                              {"waits", key.waitsForRestart}});
        topic.lines.push_back({std::string(manager.title), sentenceOf(way, key)});
    }
    return topic;
}

} // namespace vexmoor
