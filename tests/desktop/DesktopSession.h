#pragma once

#include "Screen.h"

#include "support/BackgroundProgram.h"
#include "support/Command.h"
#include "support/Descendants.h"
#include "support/PrivateBus.h"
#include "support/SoundServer.h"
#include "support/TemporaryDirectory.h"
#include "support/XDisplay.h"

#include <QDBusConnection>
#include <QList>
#include <QVariant>

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace vexmoor::test {

struct BusObject {
    QString service;
    QString path;
    QString interface;
};

/// A private desktop session with a scratch home, in which the built programs run: a display with a
/// window manager, a session bus with the accessibility service, a sound server, notifications.
/// Uses nothing of the user's session. The destructor ends all its processes.
class DesktopSession {
  public:
    struct Setting {
        std::string size = "1280x800";
        bool compositor = false;
        bool sound = true;
        bool notifications = true;
        bool thumbnails = true;
        bool onboarded = true; ///< false: the first start shows the walkthrough
        double scale = 1;      ///< physical pixels per point, for Qt programs
        QColor background = QColor(0x3b, 0x4a, 0x5e);
    };

    /// Returns the name of a required program that is not installed; nullopt if all are.
    static std::optional<std::string> missing();

    explicit DesktopSession(const Setting& setting);
    ~DesktopSession();
    DesktopSession(const DesktopSession&) = delete;
    DesktopSession& operator=(const DesktopSession&) = delete;

    [[nodiscard]] const Path& home() const { return m_home.path(); }
    /// Writes a file in the home folder and creates missing folders.
    Path write(const Path& name, std::string_view bytes) const { return m_home.write(name, bytes); }

    /// Starts a program in this session; `changes` are applied to its environment.
    [[nodiscard]] BackgroundProgram start(const std::vector<std::string>& words,
                                          const BackgroundProgram::Environment& changes = {}) const;
    /// Returns a command in this session.
    [[nodiscard]] Command command(std::vector<std::string> words) const;
    /// Runs a tool and returns its output; throws if it fails.
    std::string run(std::vector<std::string> words) const;

    /// Simulates mouse and keyboard.
    void xdotool(const std::string& orders) const;
    void press(const std::string& keys) const { xdotool("key " + keys); }
    void click(QPoint point) const;
    /// Drags between two points at a user's speed, so that programs can follow.
    void drag(QPoint from, QPoint to) const;

    /// Adds a monitor that shows a part of the screen. The first one replaces the default monitor.
    void addMonitor(const std::string& name, const QRect& part);
    void removeMonitor(const std::string& name) const { run({"xrandr", "--delmonitor", name}); }

    Screen& screen() { return *m_screen; }
    XDisplay& display() { return *m_display; }
    SoundServer& sound() { return *m_sound; }
    [[nodiscard]] QDBusConnection bus() const { return QDBusConnection(m_busName); }
    /// Calls a method on the session's bus and waits for the reply; throws if it fails.
    QList<QVariant> call(const BusObject& object, const char* method,
                         const QList<QVariant>& arguments = {}) const;
    [[nodiscard]] bool hasService(const std::string& name) const;
    /// Returns the notifications, oldest first: "summary: body".
    [[nodiscard]] std::vector<std::string> notifications() const;

    void endBus() { m_bus->die(); }
    void endNotifications() { m_notifications->kill(); }
    /// Sends a signal to the process that owns the name on the bus.
    void signal(const std::string& name, int number) const;

  private:
    void chooseServices(bool thumbnails) const;
    void skipWalkthrough() const;
    void switchAccessibilityOn() const;

    TemporaryDirectory m_home;
    Descendants m_descendants; ///< including services started by the bus
    BackgroundProgram::Environment m_environment;
    std::optional<SoundServer> m_sound;
    std::optional<XDisplay> m_display;
    std::optional<PrivateBus> m_bus;
    QString m_busName;
    std::optional<BackgroundProgram> m_notifications;
    std::optional<Screen> m_screen;
    bool m_hasMonitors = false;
};

} // namespace vexmoor::test
