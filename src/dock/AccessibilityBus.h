#pragma once

#include <QDBusConnection>
#include <QDBusServiceWatcher>
#include <QObject>

namespace vexmoor {

/// Whether the session has an accessibility bus. It is asked without waiting, at once and whenever
/// the service that gives it comes or goes, so that the answer is always at hand. Main thread.
class AccessibilityBus : public QObject {
    Q_OBJECT

  public:
    explicit AccessibilityBus(QDBusConnection session = QDBusConnection::sessionBus(),
                              QObject* parent = nullptr);

    /// The last answer; false until there is one.
    [[nodiscard]] bool answers() const { return m_answers; }

    /// Asks again and waits, two seconds at most: for the diagnostic that prints and ends.
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
