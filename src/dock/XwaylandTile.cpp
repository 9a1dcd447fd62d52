#include "XwaylandTile.h"

#include "NativeWindow.h"

#include <algorithm>
#include <iterator>
#include <optional>

namespace vexmoor {
namespace {

using Manager = TileHandling::Manager;

struct Row {
    const char* windowManager; ///< how its name begins; null if only the desktop tells
    const char* desktop;       ///< null if only the window manager's name tells
    Manager manager;
};

// GNOME places a managed dock where it asks to be and covers it by fullscreen windows. KWin does
// too, but hands the data of a drag only to windows that can have the focus. The others place
// managed windows as they like.
constexpr Row kRows[] = {
    {"GNOME Shell", "GNOME", Manager::windowManager},
    {"Mutter", "Pantheon", Manager::windowManager},
    {"Mutter", "Budgie", Manager::windowManager},
    {"KWin", "KDE", Manager::windowManagerWithFocus},
    {"wlroots wm", "sway", Manager::nobody},
    {"Hyprland", "Hyprland", Manager::nobody},
    {"Smithay", "COSMIC", Manager::nobody},
    {nullptr, "niri", Manager::nobody},
};

std::optional<Manager> byName(const QString& name) {
    const auto* const row = std::ranges::find_if(kRows, [&](const Row& one) {
        return one.windowManager != nullptr &&
               name.startsWith(QLatin1String(one.windowManager), Qt::CaseInsensitive);
    });
    return row != std::end(kRows) ? std::optional(row->manager) : std::nullopt;
}

std::optional<Manager> byDesktop(const QString& desktops) {
    const QStringList all = desktops.split(u':', Qt::SkipEmptyParts);
    const auto* const row = std::ranges::find_if(kRows, [&](const Row& one) {
        return all.contains(QLatin1String(one.desktop), Qt::CaseInsensitive);
    });
    return row != std::end(kRows) ? std::optional(row->manager) : std::nullopt;
}

} // namespace

DisplayFacts DisplayFacts::ofSession() {
    return {.isXwayland = native::isXwayland(),
            .windowManager = native::windowManagerName(),
            .currentDesktop = qEnvironmentVariable("XDG_CURRENT_DESKTOP")};
}

TileHandling tileHandling(const DisplayFacts& facts) {
    if (!facts.isXwayland)
        return {};
    auto manager = byName(facts.windowManager);
    if (!manager)
        manager = byDesktop(facts.currentDesktop);
    return {.manager = manager.value_or(Manager::nobody), .readsDragsEarly = true};
}

} // namespace vexmoor
