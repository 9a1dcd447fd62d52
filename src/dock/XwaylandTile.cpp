#include "XwaylandTile.h"

#include "NativeWindow.h"

#include <algorithm>
#include <iterator>
#include <optional>

namespace vexmoor {
namespace {

using Manager = TileHandling::Manager;

struct Row {
    const char* windowManager; ///< prefix of its name; null if only the desktop identifies it
    const char* desktop;       ///< null if only the window manager's name identifies it
    Manager manager;
};

// GNOME keeps a managed dock at its requested position and covers it with fullscreen windows. So
// does KWin, but it delivers a drag's data only to windows that can take the focus. Other
// compositors place managed windows themselves.
constexpr Row kRows[] = {
    {"GNOME Shell", "GNOME", Manager::windowManager},
    {"Mutter", "Pantheon", Manager::windowManager},
    {"Mutter", "Budgie", Manager::windowManager},
    {"KWin", "KDE", Manager::windowManagerWithFocus},
    {"wlroots wm", "sway", Manager::none},
    {"Hyprland", "Hyprland", Manager::none},
    {"Smithay", "COSMIC", Manager::none},
    {nullptr, "niri", Manager::none},
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
    return {.manager = manager.value_or(Manager::none), .readsDragsEarly = true};
}

} // namespace vexmoor
