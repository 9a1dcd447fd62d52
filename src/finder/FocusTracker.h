#pragma once

#include "EventTap.h"

#include <QDBusConnection>
#include <QObject>
#include <QString>
#include <QThread>

#include <sys/types.h>

#include <chrono>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <set>

namespace vexmoor {

/// Tracks the keyboard focus on the accessibility bus (AT-SPI) on its own thread. An element that
/// is not clearly a view of files counts as text, so that it receives its keys.
class FocusTracker : public FocusedElement {
  public:
    /// Calls `programIsInvisible`, on the calling thread of isText(), once for each queried process
    /// that never reported a focus.
    FocusTracker(const QDBusConnection& session, std::function<void()> programIsInvisible);
    ~FocusTracker() override;

    /// Tracks the focus until stop(): programs report their focus only while a client listens. Call
    /// on the thread that created this object.
    void start();
    void stop();

    /// Queries the element's role, and uses its last known role if that takes longer than 40 ms.
    /// Thread-safe.
    bool isText() override;

    /// Sets the process of the active window; a focus in other processes is ignored. Thread-safe.
    void setProcess(std::optional<pid_t> process);

  private:
    class Listener;

    /// An element of a program on the accessibility bus.
    struct Element {
        QString connection; ///< name of our own connection to the bus
        QString service;
        QString path;
        pid_t process = 0;

        bool operator==(const Element&) const = default;
    };

    [[nodiscard]] std::optional<Element> focusedElement();
    void reportIfInvisible();

    std::function<void()> m_programIsInvisible;
    QThread m_thread;
    std::unique_ptr<Listener> m_listener; ///< lives on the thread

    std::mutex m_mutex; ///< guards the members below
    std::optional<Element> m_focused;
    bool m_showsFiles = false; ///< by the focused element's last known role
    std::optional<std::chrono::steady_clock::time_point>
        m_lost; ///< when it reported losing the focus
    std::optional<pid_t> m_process;
    std::set<pid_t> m_visible;   ///< processes that reported a focus
    std::set<pid_t> m_invisible; ///< processes passed to m_programIsInvisible
};

} // namespace vexmoor
