#pragma once

#include "dock/SelectionOwner.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>

namespace vexmoor {

/// Whether something on the desktop shows status icons: a host of StatusNotifierItems, or a tray of
/// the older X11 kind. It may come late, go, and come back. Main thread.
class TrayHost : public QObject {
    Q_OBJECT

  public:
    /// The answer of a host that is there already comes a little later, by the signal.
    explicit TrayHost(const QDBusConnection& session);

    [[nodiscard]] bool isAvailable() const { return m_available; }

  signals:
    void availableChanged(bool available);

  private slots:
    void askWatcher();

  private:
    void watcherGone();
    void answered(const QDBusMessage& answer);
    void update();

    QDBusConnection m_session;
    SelectionOwner m_tray;
    bool m_hasHost = false; ///< one of StatusNotifierItems
    bool m_available = false;
};

} // namespace vexmoor
