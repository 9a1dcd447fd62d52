#include "DockTile.h"

#include <QProcess>
#include <QStandardPaths>

#include <algorithm>

namespace vexmoor {
namespace {

using Element = AccessibilityElement::Pointer;

template <typename Matches>
Element firstChild(const Element& parent, Matches matches) {
    for (Element& child : parent->children())
        if (matches(*child))
            return child;
    return nullptr;
}

constexpr DockTile::Panel kPanels[] = {
    {"GNOME", "gnome-control-center", "universal-access"},
    {"KDE", "systemsettings", "kcm_access"},
    {"KDE", "systemsettings5", "kcm_access"},
    {"XFCE", "xfce4-accessibility-settings", nullptr},
    {"MATE", "mate-at-properties", nullptr},
    {"X-Cinnamon", "cinnamon-settings", "accessibility"},
};

bool startDetached(const QString& program, const QStringList& arguments) {
    const QString file = QStandardPaths::findExecutable(program);
    return !file.isEmpty() && QProcess::startDetached(file, arguments);
}

} // namespace

DockTile::DockTile(const Accessibility& accessibility, const Screens& screens, QString name)
    : m_accessibility(accessibility), m_screens(screens), m_name(std::move(name)) {}

std::optional<DeskRect> DockTile::frame() const {
    if (!m_accessibility.isTrusted())
        return std::nullopt;
    const Element dock = m_accessibility.dock();
    if (!dock)
        return std::nullopt;
    const Element list = firstChild(
        dock, [](const AccessibilityElement& e) { return e.role() == QStringLiteral("AXList"); });
    if (!list)
        return std::nullopt;
    const Element tile =
        firstChild(list, [this](const AccessibilityElement& e) { return e.title() == m_name; });
    if (!tile)
        return std::nullopt;
    const auto position = tile->position();
    const auto size = tile->size();
    if (!position || !size)
        return std::nullopt;

    const std::vector<DeskRect> screens = m_screens.frames();
    const auto primary = std::ranges::find_if(
        screens, [](const DeskRect& screen) { return screen.x == 0 && screen.y == 0; });
    if (primary == screens.end())
        return std::nullopt;
    return DeskRect{position->x(), primary->height - position->y() - size->height(), size->width(),
                    size->height()};
}

std::span<const DockTile::Panel> DockTile::panels() {
    return kPanels;
}

bool DockTile::openSettings() {
    return openSettings(qEnvironmentVariable("XDG_CURRENT_DESKTOP"), startDetached);
}

bool DockTile::openSettings(const QString& currentDesktop, const Start& start) {
    const QStringList current = currentDesktop.split(u':');
    std::vector<Panel> panels(std::begin(kPanels), std::end(kPanels));
    std::stable_partition(panels.begin(), panels.end(), [&](const Panel& panel) {
        return current.contains(QLatin1String(panel.desktop), Qt::CaseInsensitive);
    });
    return std::ranges::any_of(panels, [&](const Panel& panel) {
        const QStringList arguments =
            panel.argument ? QStringList{QLatin1String(panel.argument)} : QStringList();
        return start(QLatin1String(panel.program), arguments);
    });
}

} // namespace vexmoor
