#include "Permissions.h"

namespace vexmoor {
namespace {

using Notice = PermissionNotice;
using Remedy = PermissionNotice::Remedy;

QString hintText(const Permissions::KeyHint& hint) {
    switch (hint.kind) {
    case Permissions::KeyHint::Kind::needsRestart:
        return Notice::tr("Restart %1 to use Ctrl+Backspace there.").arg(hint.fileManager);
    case Permissions::KeyHint::Kind::taken:
        return Notice::tr("In %1, you assigned Ctrl+Backspace to another action.")
            .arg(hint.fileManager);
    case Permissions::KeyHint::Kind::menuOnly:
        return Notice::tr("In %1, Ctrl+Backspace can't work in this session. Right-click files "
                          "and choose Feed to Vexmoor.")
            .arg(hint.fileManager);
    }
    return {};
}

void addKeyNotices(std::vector<Notice>& notices, const Permissions& permissions) {
    if (permissions.focusReports == Permissions::FocusReports::missing)
        notices.push_back({Notice::tr("Ctrl+Backspace doesn't work in file managers that were "
                                      "started without accessibility support."),
                           Notice::tr("Turn On Support"), Remedy::focusReports});
    else if (permissions.focusReports == Permissions::FocusReports::afterRestart)
        notices.push_back(
            {Notice::tr("Accessibility support is on. Restart the file manager to use "
                        "Ctrl+Backspace there."),
             {},
             Remedy::none});
    for (const auto& hint : permissions.keyHints)
        notices.push_back({hintText(hint), {}, Remedy::none});
}

} // namespace

std::vector<PermissionNotice> PermissionNotice::of(const Permissions& permissions,
                                                   bool capturesKey) {
    std::vector<Notice> notices;
    if (!permissions.accessible)
        notices.push_back({tr("Needs Accessibility access for the Dock tile and the ⌘⌫ shortcut."),
                           tr("Open Settings"), Remedy::accessibilitySettings});
    if (!permissions.keyIsPossible)
        return notices; // the setting's row shows this
    if (permissions.automation != AutomationStatus::granted)
        notices.push_back(
            {tr("⌘⌫ needs permission to ask Finder for the selection."),
             permissions.automation == AutomationStatus::notAsked ? tr("Allow…") : tr("Allow"),
             Remedy::automation});
    else if (capturesKey)
        addKeyNotices(notices, permissions);
    return notices;
}

} // namespace vexmoor
