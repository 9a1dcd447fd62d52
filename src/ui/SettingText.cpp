#include "SettingText.h"

namespace vexmoor {

std::vector<SettingText> SettingText::all(const Settings& settings, bool keyIsPossible) {
    const bool dissolves = settings.mode.get() == DisposeMode::dissolve;
    const auto row = [&settings](Setting<bool> Settings::*setting, const QString& label,
                                 const QString& caption = {}) {
        return SettingText{setting, label, caption, (settings.*setting).get(), true};
    };
    std::vector<SettingText> rows{
        {nullptr, tr("Dissolve forever"),
         dissolves ? tr("Dissolve skips the Bin entirely. Gone means gone.")
                   : tr("Off: sacrifices go to the Bin, where Put Back still works."),
         dissolves, true},
        row(&Settings::confirmDissolve, tr("Ask before dissolving")),
        row(&Settings::sound, tr("Sizzle sound")),
        row(&Settings::escapeDock, tr("Flames rise above the Dock")),
        row(&Settings::showMenuBarIcon, tr("Show in the menu bar")),
        row(&Settings::captureFinderDelete, tr("⌘⌫ in Finder feeds the cauldron"),
            tr("Or right-click files and choose Services > Feed to Vexmoor.")),
    };
    if (!keyIsPossible) {
        rows.back().isPossible = false;
        rows.back().caption = tr("Not in this session: no file manager here can bind the key. "
                                 "Right-click files and choose Feed to Vexmoor.");
    }
    return rows;
}

} // namespace vexmoor
