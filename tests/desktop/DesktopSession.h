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

/// A whole desktop of the test's own, with a home, in which the built programs run: a display with
/// a window manager, a session bus with the accessibility service, a sound server, notifications.
/// Nothing of the user's own session is in it; all of it ends with it.
class DesktopSession {
  public:
    struct Setting {
        std::string size = "1280x800";
        bool compositor = false;
        bool sound = true;
        bool notifications = true;
        bool thumbnails = true;
        bool onboarded = true; ///< false: the first start shows the walkthrough
        double scale = 1;      ///< physical pixels a point, for what Qt draws
        QColor background = QColor(0x3b, 0x4a, 0x5e);
    };

    /// What must be installed for it and is not; nothing where all is there.
    static std::optional<std::string> missing();

    explicit DesktopSession(const Setting& setting);
    ~DesktopSession();
    DesktopSession(const DesktopSession&) = delete;
    DesktopSession& operator=(const DesktopSession&) = delete;

    [[nodiscard]] const Path& home() const { return m_home.path(); }
    /// A file of the home, its folders made where they are missing.
    Path write(const Path& name, std::string_view bytes) const { return m_home.write(name, bytes); }

    /// A program that runs beside the test, in this session; `changes` to its environment.
    [[nodiscard]] BackgroundProgram start(const std::vector<std::string>& words,
                                          const BackgroundProgram::Environment& changes = {}) const;
    /// One that the test waits for.
    [[nodiscard]] Command command(std::vector<std::string> words) const;
    /// Runs a tool and hands out what it prints; throws where it fails.
    std::string run(std::vector<std::string> words) const;

    /// Gives orders to mouse and keyboard.
    void xdotool(const std::string& orders) const;
    void press(const std::string& keys) const { xdotool("key " + keys); }
    void click(QPoint point) const;
    /// Drags from one point to another as a hand does, slowly enough for programs to follow.
    void drag(QPoint from, QPoint to) const;

    /// A monitor that shows a part of the screen. The first one takes the place of the whole.
    void addMonitor(const std::string& name, const QRect& part);
    void removeMonitor(const std::string& name) const { run({"xrandr", "--delmonitor", name}); }

    Screen& screen() { return *m_screen; }
    XDisplay& display() { return *m_display; }
    SoundServer& sound() { return *m_sound; }
    [[nodiscard]] QDBusConnection bus() const { return QDBusConnection(m_busName); }
    /// Calls a method on the session's bus and waits for its answer; throws where it fails.
    QList<QVariant> call(const BusObject& object, const char* method,
                         const QList<QVariant>& arguments = {}) const;
    [[nodiscard]] bool hasService(const std::string& name) const;
    /// What notifications have said, oldest first: "summary: body".
    [[nodiscard]] std::vector<std::string> notifications() const;

    void endBus() { m_bus->die(); }
    void endNotifications() { m_notifications->kill(); }
    /// Sends a signal to the program that has that name on the bus.
    void signal(const std::string& name, int number) const;

  private:
    void chooseServices(bool thumbnails) const;
    void skipWalkthrough() const;
    void switchAccessibilityOn() const;

    TemporaryDirectory m_home;
    Descendants m_descendants; ///< services of the bus among them
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
