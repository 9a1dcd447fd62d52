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

/// Follows the keyboard focus on the accessibility bus (AT-SPI), on a thread of its own. Where the
/// focused element is not clearly a view of files it counts as text, so that it keeps its keys.
class FocusTracker : public FocusedElement {
  public:
    /// `programIsInvisible` is called once for each process that is asked about and has never
    /// shown a focus on the bus, on the thread that asks.
    FocusTracker(const QDBusConnection& session, std::function<void()> programIsInvisible);
    ~FocusTracker() override;

    /// Follows the focus from now on, until stop(): programs report their focus only while a client
    /// listens. On the thread that made it.
    void start();
    void stop();

    /// Asks the element for its role, and relies on what it was if that takes longer than 40 ms.
    /// Any thread.
    bool isText() override;

    /// The process whose window is active: a focus elsewhere does not count. Any thread.
    void setProcess(std::optional<pid_t> process);

  private:
    class Listener;

    /// An element of a program on the accessibility bus.
    struct Element {
        QString connection; ///< the name of this program's connection to the bus
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

    std::mutex m_mutex; ///< guards what follows
    std::optional<Element> m_focused;
    bool m_showsFiles = false; ///< the focused element, as its role was last
    std::optional<std::chrono::steady_clock::time_point> m_lost; ///< when it reported to lose it
    std::optional<pid_t> m_process;
    std::set<pid_t> m_visible;   ///< have shown a focus
    std::set<pid_t> m_invisible; ///< were reported
};

} // namespace vexmoor
