#include "Appearance.h"

#include "ui/Motion.h"
#include "ui/WindowPalette.h"

namespace vexmoor {
namespace {

std::optional<bool> isDarkWanted(ColorScheme scheme) {
    if (scheme == ColorScheme::noPreference)
        return std::nullopt;
    return scheme == ColorScheme::dark;
}

void apply(const DesktopPreferences::Values& values) {
    useWindowPalette(isDarkWanted(values.colorScheme));
    setReducedMotion(values.reducedMotion);
}

} // namespace

Appearance::Appearance(const QDBusConnection& session) : m_preferences(session) {
    connect(&m_preferences, &DesktopPreferences::changed, this, &apply);
}

} // namespace vexmoor
