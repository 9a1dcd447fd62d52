#pragma once

#include "FocusTracker.h"

#include <QDBusMessage>
#include <QDBusServiceWatcher>

#include <future>
#include <map>

namespace vexmoor {

/// Maintains the connection to the accessibility bus and receives focus events. Lives on the
/// tracker's thread.
class FocusTracker::Listener : public QObject {
    Q_OBJECT

  public:
    Listener(FocusTracker& tracker, const QDBusConnection& session);

    void start();
    void stop();

    /// Sets the answer to whether the formerly focused element may be text, or lost the focus.
    void ask(const Element& element, const std::shared_ptr<std::promise<bool>>& answer);

    /// Searches for the focused element of a process that has not reported one yet.
    void search(pid_t process);

  public slots:
    void takeFocus(const QDBusMessage& event);

  private:
    void connectToBus();
    void disconnectFromBus();
    [[nodiscard]] pid_t processOf(const QString& service);
    void setFocused(const Element& element);
    /// Calls `answered`, with the tracker locked, with whether the element shows files; with false
    /// if it does not reply.
    void askRole(const Element& element, std::function<void(bool)> answered);

    FocusTracker& m_tracker;
    QDBusConnection m_session;
    std::unique_ptr<QDBusServiceWatcher> m_watcher;
    QString m_name;
    std::map<QString, pid_t> m_processes; ///< by unique bus name; these are never reused
};

} // namespace vexmoor
