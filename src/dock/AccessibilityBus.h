#pragma once

#include <QDBusConnection>
#include <QDBusServiceWatcher>
#include <QObject>

namespace vexmoor {

/// Whether the session has an accessibility bus. Queries it asynchronously at start and whenever
/// the service that provides it starts or exits. Main thread.
class AccessibilityBus : public QObject {
    Q_OBJECT

  public:
    explicit AccessibilityBus(QDBusConnection session = QDBusConnection::sessionBus(),
                              QObject* parent = nullptr);

    /// Returns the last known answer; false until the first one.
    [[nodiscard]] bool answers() const { return m_answers; }

    /// Queries synchronously, with a timeout of two seconds. Used by the diagnostic command.
    bool askNow();

  signals:
    void answersChanged(bool answers);

  private:
    void ask();
    void setAnswers(bool answers);

    QDBusConnection m_session;
    QDBusServiceWatcher m_watcher;
    bool m_answers = false;
};

} // namespace vexmoor
