#include "SettingDescription.h"

#include "skins/Skin.h"

namespace vexmoor {

namespace {

std::vector<std::string> skinIds() {
    std::vector<std::string> ids;
    for (const auto& skin : Skin::all())
        ids.emplace_back(skin.id);
    return ids;
}

} // namespace

const std::vector<SettingDescription>& settingDescriptions() {
    static const std::vector<std::string> onOff = {"on", "off"};
    static const std::vector<SettingDescription> all = {
        {"mode", "Where sacrifices go: to the Bin, or dissolved forever", {"bin", "dissolve"}},
        {"confirmDissolve", "Ask before dissolving", onOff},
        {"sound", "The sizzle", onOff},
        {"escapeDock", "Flames may rise above the cauldron's tile", onOff},
        {"captureFinderDelete", "Ctrl+Backspace in the file manager feeds the selection", onOff},
        {"showMenuBarIcon", "The icon in the status bar", onOff},
        {"skin", "The cauldron; each but the first is earned", skinIds()}};
    return all;
}

} // namespace vexmoor
