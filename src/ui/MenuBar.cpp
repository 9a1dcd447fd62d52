#include "MenuBar.h"

#include "Accent.h"
#include "MenuFiller.h"
#include "MenuStats.h"
#include "PopupMenu.h"
#include "PotSilhouette.h"
#include "TextStyle.h"

#include "dock/Compositor.h"
#include "progression/Progression.h"

#include <QApplication>
#include <QCursor>
#include <QEvent>
#include <QSystemTrayIcon>

#include <utility>

namespace vexmoor {
namespace {

/// Visible on light and dark menus, since the tray menu's colours are unknown.
constexpr QColor kSymbolColour{0x80, 0x80, 0x80};

QIcon tintedIcon() {
    return panelIcon(MenuBar::icon(), isDark(groundOf(QApplication::palette())));
}

void addText(QMenu& menu, const QString& title) {
    menu.addAction(title)->setEnabled(false);
}

} // namespace

MenuBar::MenuBar(MenuContents::Parts parts, const Compositor& compositor,
                 const QDBusConnection& session)
    : m_contents(std::move(parts)), m_compositor(compositor), m_host(session) {
    connect(&m_host, &TrayHost::availableChanged, this, &MenuBar::updateItem);
    qApp->installEventFilter(this);
}

MenuBar::~MenuBar() {
    delete m_popup;
}

void MenuBar::setVisible(bool visible) {
    m_visible = visible;
    updateItem();
}

/// The status item is created only if there is a tray, because Qt detects the kind of tray on
/// creation.
void MenuBar::updateItem() {
    const bool shows = m_visible && m_host.isAvailable();
    if (shows == (m_item != nullptr))
        return;
    if (!shows) {
        // Deferred, because the item's own menu may have triggered this.
        m_item->hide();
        m_item.release()->deleteLater();
        m_trayMenu.release()->deleteLater();
        return;
    }
    m_trayMenu = std::make_unique<QMenu>();
    m_trayEntries.clear();
    menuNeedsUpdate(*m_trayMenu);
    connect(m_trayMenu.get(), &QMenu::aboutToShow, this,
            [this, menu = m_trayMenu.get()] { menuNeedsUpdate(*menu); });
    m_item = std::make_unique<QSystemTrayIcon>(tintedIcon());
    m_item->setToolTip(QStringLiteral("Vexmoor"));
    m_item->setContextMenu(m_trayMenu.get());
    connect(m_item.get(), &QSystemTrayIcon::activated, this,
            [this](QSystemTrayIcon::ActivationReason reason) {
                if (reason == QSystemTrayIcon::Trigger)
                    popUp(QCursor::pos());
            });
    m_item->show();
}

/// Updates the icon when the desktop's colours change.
bool MenuBar::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::ApplicationPaletteChange && watched == qApp && m_item)
        m_item->setIcon(tintedIcon());
    return QObject::eventFilter(watched, event);
}

void MenuBar::popUp(QPoint globalPosition) {
    delete m_popup;
    const auto& parts = m_contents.parts();
    const auto makeHeader = [&parts](QWidget* parent) {
        return new MenuStats(parts.ledger, parts.progression, parts.clock, parent);
    };
    m_popup =
        new PopupMenu(m_contents.entries(), makeHeader,
                      Skin::named(parts.progression.progress().skin), m_compositor.isRunning());
    m_popup->popup(globalPosition);
}

void MenuBar::menuNeedsUpdate(QMenu& menu) {
    const auto& parts = m_contents.parts();
    const auto text = MenuStatsText::of(parts.ledger, parts.progression.progress(), parts.clock());
    auto entries = m_contents.entries();
    const QString header = text.line() + '\n' + text.caption;
    if (!m_trayEntries.empty() && entries == m_trayEntries && header == m_trayHeader)
        return;
    menu.clear();
    qDeleteAll(menu.findChildren<QMenu*>(Qt::FindDirectChildrenOnly));
    const MenuFiller filler{
        .addHeader =
            [&text](QMenu& filled) {
                addText(filled, text.line());
                addText(filled, text.caption);
            },
        .addSection = addText,
        .addSubmenu = [](QMenu& parent, const QString& title) { return parent.addMenu(title); },
        .symbolColour = kSymbolColour,
    };
    filler.fill(menu, entries);
    m_trayEntries = std::move(entries);
    m_trayHeader = header;
}

const QImage& MenuBar::icon() {
    static const QImage icon = potSilhouette();
    return icon;
}

} // namespace vexmoor
