#pragma once

#include "MenuContents.h"
#include "TrayHost.h"

#include <QDBusConnection>
#include <QImage>
#include <QMenu>
#include <QPoint>
#include <QPointer>

#include <memory>
#include <vector>

class QSystemTrayIcon;

namespace vexmoor {

class Compositor;
class PopupMenu;

/// The cauldron's menu, and the status item that opens it. A left click on the item opens a popup
/// of our own; the right button's menu is drawn by the tray, which gets the same entries, the
/// header as lines of text. Both are made again at each opening. Main thread.
class MenuBar : public QObject {
    Q_OBJECT

  public:
    /// The compositor outlives it; `session` is where trays are found.
    MenuBar(MenuContents::Parts parts, const Compositor& compositor,
            const QDBusConnection& session);
    ~MenuBar() override;

    /// Whether the status item is wanted. It shows as soon as there is a tray, and again after a
    /// tray went and came back.
    [[nodiscard]] bool isVisible() const { return m_visible; }
    void setVisible(bool visible);

    /// Opens the menu as a popup there, and closes the one that is open.
    void popUp(QPoint globalPosition);

    /// What the menu asks for: its signals.
    [[nodiscard]] const MenuContents& contents() const { return m_contents; }

    /// Fills the tray's menu with what holds at the moment; one that holds it already is left as it
    /// is, so that nothing jumps under the pointer.
    void menuNeedsUpdate(QMenu& menu);

    /// The status item's image as a template, before it is tinted.
    static const QImage& icon();

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void updateItem();

    MenuContents m_contents;
    const Compositor& m_compositor;
    TrayHost m_host;
    bool m_visible = false;
    std::unique_ptr<QMenu> m_trayMenu;
    std::vector<MenuEntry> m_trayEntries; ///< what the tray's menu holds
    QString m_trayHeader;
    std::unique_ptr<QSystemTrayIcon> m_item; ///< while it is shown
    QPointer<PopupMenu> m_popup;
};

} // namespace vexmoor
