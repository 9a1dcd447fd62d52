#pragma once

#include "dock/SelectionOwner.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>

namespace vexmoor {

/// Whether the desktop shows status icons: through a StatusNotifierItem host or an X11 system tray.
/// Both can start and exit at any time. Main thread.
class TrayHost : public QObject {
    Q_OBJECT

  public:
    /// A host that already runs is reported later, by the signal.
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
    bool m_hasHost = false; ///< a StatusNotifierItem host exists
    bool m_available = false;
};

} // namespace vexmoor
