#include "NamedSettings.h"

#include "base/Path.h"

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

NamedSettings::Complaint usage(const std::string& name, const std::vector<std::string>& choices) {
    return {NamedSettings::Complaint::Kind::usage, name + " can be: " + joined(choices) + "."};
}

} // namespace

std::vector<std::string> NamedSettings::names() {
    std::vector<std::string> all = {kMode};
    for (const auto& known : Settings::switches())
        all.emplace_back(known.name);
    all.emplace_back(kSkin);
    return all;
}

std::optional<NamedSettings::Complaint> NamedSettings::assign(const std::string& name,
                                                              const std::string& text) {
    if (name == kSkin)
        return selectSkin(text);
    if (name == kMode) {
        const auto mode = disposeModeFromRawValue(text);
        if (!mode)
            return usage(name, {"bin", "dissolve"});
        m_settings.mode.set(*mode);
        return std::nullopt;
    }
    const auto known = std::ranges::find(Settings::switches(), name, &Settings::Switch::name);
    if (known == Settings::switches().end())
        return usage("A setting's name", names());
    const auto value = switchValue(text);
    if (!value)
        return usage(name, {"on", "off"});
    (m_settings.*known->setting).set(*value);
    return std::nullopt;
}

std::optional<NamedSettings::Complaint> NamedSettings::selectSkin(const std::string& id) {
    std::vector<std::string> unlocked;
    for (const auto& skin : m_progression.unlockedSkins()) {
        if (skin.id == id) {
            m_progression.select(skin);
            return std::nullopt;
        }
        unlocked.emplace_back(skin.id);
    }
    if (std::ranges::count(Skin::all(), id, &Skin::id) == 0)
        return usage(kSkin, unlocked);
    return Complaint{Complaint::Kind::refused,
                     "The " + std::string(Skin::named(id).name) + " cauldron is still locked."};
}

} // namespace vexmoor
