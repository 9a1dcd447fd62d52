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

/// The cauldron's menu and the status item that opens it. A left click opens our own popup; a right
/// click opens the tray's menu with the same entries and the header as text. Both are rebuilt on
/// each opening. Main thread.
class MenuBar : public QObject {
    Q_OBJECT

  public:
    /// The compositor must outlive it; trays are searched on `session`.
    MenuBar(MenuContents::Parts parts, const Compositor& compositor,
            const QDBusConnection& session);
    ~MenuBar() override;

    /// Whether the status item is enabled. It is shown whenever there is a tray.
    [[nodiscard]] bool isVisible() const { return m_visible; }
    void setVisible(bool visible);

    /// Opens the popup menu at that position and closes an open one.
    void popUp(QPoint globalPosition);

    /// Returns the contents, whose signals report the chosen entries.
    [[nodiscard]] const MenuContents& contents() const { return m_contents; }

    /// Updates the tray's menu. Leaves it unchanged if it is up to date, so that entries do not
    /// move under the pointer.
    void menuNeedsUpdate(QMenu& menu);

    /// Returns the status item's template image before tinting.
    static const QImage& icon();

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void updateItem();

    MenuContents m_contents;
    const Compositor& m_compositor;
    TrayHost m_host;
    bool m_visible = false;
    std::unique_ptr<QMenu> m_trayMenu;
    std::vector<MenuEntry> m_trayEntries; ///< current entries of the tray's menu
    QString m_trayHeader;
    std::unique_ptr<QSystemTrayIcon> m_item; ///< exists while shown
    QPointer<PopupMenu> m_popup;
};

} // namespace vexmoor
