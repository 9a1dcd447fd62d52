#include "SettingDescription.h"

#include "base/Marked.h"
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
        {"mode",
         marked("Where sacrifices go: to the Bin, or dissolved forever"),
         {"bin", "dissolve"}},
        {"confirmDissolve", marked("Ask before dissolving"), onOff},
        {"sound", marked("The sizzle"), onOff},
        {"escapeDock", marked("Flames may rise above the cauldron's tile"), onOff},
        {"captureFinderDelete", marked("Ctrl+Backspace in the file manager feeds the selection"),
         onOff},
        {"showMenuBarIcon", marked("The icon in the status bar"), onOff},
        {"skin", marked("The cauldron; each but the first is earned"), skinIds()}};
    return all;
}

} // namespace vexmoor
