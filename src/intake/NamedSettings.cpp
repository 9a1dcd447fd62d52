#include "NamedSettings.h"

#include "base/Path.h"
#include "base/Text.h"

#include <algorithm>

namespace vexmoor {

namespace {

constexpr const char* kMode = "mode";
constexpr const char* kSkin = "skin";

std::optional<bool> switchValue(const std::string& text) {
    for (const char* on : {"on", "true", "yes", "1"})
        if (text == on)
            return true;
    for (const char* off : {"off", "false", "no", "0"})
        if (text == off)
            return false;
    return std::nullopt;
}

std::string joined(const std::vector<std::string>& words) {
    std::string list;
    for (const auto& word : words)
        list.append(list.empty() ? "" : ", ").append(word);
    return list;
}

NamedSettings::Complaint usage(const std::string& sentence) {
    return {NamedSettings::Complaint::Kind::usage, sentence};
}

NamedSettings::Complaint usage(const std::string& name, const std::vector<std::string>& choices) {
    return usage(text("%1 can be: %2.", {name, joined(choices)}));
}

} // namespace

std::vector<std::string> NamedSettings::names() {
    std::vector<std::string> all = {kMode};
    for (const auto& known : Settings::switches())
        all.emplace_back(known.name);
    all.emplace_back(kSkin);
    return all;
}

std::optional<NamedSettings::Complaint>
NamedSettings::complaintAbout(const std::string& name, const std::string& value) const {
    if (name == kSkin)
        return complaintAboutSkin(value);
    const auto possible = choices(name);
    if (possible.empty())
        return usage(text("A setting's name can be: %1.", {joined(names())}));
    const bool isPossible =
        name == kMode ? disposeModeFromRawValue(value).has_value() : switchValue(value).has_value();
    return isPossible ? std::nullopt : std::optional(usage(name, possible));
}

std::vector<std::string> NamedSettings::choices(const std::string& name) const {
    std::vector<std::string> unlocked;
    if (name == kMode)
        return {"bin", "dissolve"};
    if (name == kSkin)
        for (const auto& skin : m_progression.unlockedSkins())
            unlocked.emplace_back(skin.id);
    else if (std::ranges::count(Settings::switches(), name, &Settings::Switch::name) > 0)
        return {"on", "off"};
    return unlocked;
}

std::optional<NamedSettings::Complaint>
NamedSettings::complaintAboutSkin(const std::string& id) const {
    const auto unlocked = choices(kSkin);
    if (std::ranges::count(unlocked, id) > 0)
        return std::nullopt;
    if (std::ranges::count(Skin::all(), id, &Skin::id) == 0)
        return usage(kSkin, unlocked);
    return Complaint{Complaint::Kind::refused,
                     text("The %1 cauldron is still locked.", {text(Skin::named(id).name)})};
}

std::optional<NamedSettings::Complaint> NamedSettings::assign(const std::string& name,
                                                              const std::string& value) {
    if (auto complaint = complaintAbout(name, value))
        return complaint;
    if (name == kSkin)
        m_progression.select(Skin::named(value));
    else if (name == kMode)
        m_settings.mode.set(*disposeModeFromRawValue(value));
    else
        (m_settings.*
         std::ranges::find(Settings::switches(), name, &Settings::Switch::name)->setting)
            .set(*switchValue(value));
    return std::nullopt;
}

} // namespace vexmoor
