#include "DesktopSession.h"

#include "base/SqliteUserDefaults.h"

#include <QDBusArgument>
#include <QDBusConnectionInterface>
#include <QDBusVariant>
#include <QVariantMap>

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <sstream>
#include <stdexcept>

namespace vexmoor::test {
namespace {

constexpr const char* kNotifications = "org.freedesktop.Notifications";

/// The complete environment of the session's programs, independent of the test's own.
BackgroundProgram::Environment surroundings(const Path& home, double scale) {
    BackgroundProgram::Environment result{
        {"HOME", home},
        {"XDG_RUNTIME_DIR", home / "run"},
        {"XDG_SESSION_TYPE", "x11"},
        {"LC_ALL", "C.UTF-8"},
        {"QT_QPA_PLATFORM", "xcb"},
        {"QT_SCALE_FACTOR", std::to_string(scale)},
        {"GSETTINGS_BACKEND", "memory"},
        {"GVFS_DISABLE_FUSE", "1"},
        {"GIO_USE_VOLUME_MONITOR", "unix"}, // there is no system bus to list volumes
    };
    for (const char* name : {"PATH", "ASAN_OPTIONS", "LSAN_OPTIONS", "TSAN_OPTIONS"})
        if (const char* const value = std::getenv(name))
            result[name] = value;
    return result;
}

std::string at(QPoint point) {
    return std::to_string(point.x()) + " " + std::to_string(point.y());
}

} // namespace

std::optional<std::string> DesktopSession::missing() {
    for (const char* program : {"dbus-daemon", "dunst", "xrandr", "xclip"})
        if (!Command::exists(program))
            return program;
    const auto sound = SoundServer::missing();
    return sound ? sound : XDisplay::missing();
}

DesktopSession::DesktopSession(const Setting& setting)
    : m_environment(surroundings(home(), setting.scale)) {
    std::filesystem::create_directory(home() / "run");
    std::filesystem::permissions(home() / "run", std::filesystem::perms::owner_all);
    if (setting.sound) {
        m_sound.emplace(home() / "run");
        m_environment["PULSE_SERVER"] = m_sound->address();
        m_sound->record();
    } else {
        m_environment["PULSE_SERVER"] = "unix:/nonexistent";
    }
    m_display.emplace(
        setting.size, home() / "run",
        BackgroundProgram::Setting{.environment = m_environment, .hasOnlyEnvironment = true});
    m_environment["DISPLAY"] = m_display->name();
    if (setting.compositor)
        m_display->startCompositor();
    m_screen.emplace(m_display->name());
    m_screen->fill(setting.background);

    chooseServices(setting.thumbnails);
    if (setting.onboarded)
        skipWalkthrough();
    m_bus.emplace(home() / "services", m_environment);
    m_environment["DBUS_SESSION_BUS_ADDRESS"] = m_bus->address();
    m_busName = QString::fromStdString(m_bus->address());
    QDBusConnection::connectToBus(m_busName, m_busName);
    if (setting.notifications)
        m_notifications.emplace(std::vector<std::string>{"dunst"},
                                BackgroundProgram::Setting{.environment = m_environment,
                                                           .hasOnlyEnvironment = true,
                                                           .errors = "/dev/null"});
    switchAccessibilityOn();
    if (setting.notifications && !eventually([this] { return hasService(kNotifications); }))
        throw std::runtime_error("the notifications do not start");
}

DesktopSession::~DesktopSession() {
    QDBusConnection::disconnectFromBus(m_busName);
}

/// The session's bus can start only these services.
void DesktopSession::chooseServices(bool thumbnails) const {
    const Path installed = "/usr/share/dbus-1/services";
    const Path chosen = home() / "services";
    std::filesystem::create_directory(chosen);
    for (const auto& entry : std::filesystem::directory_iterator(installed)) {
        const std::string name = entry.path().filename();
        const bool isChosen = name.starts_with("org.a11y") || name.starts_with("org.xfce.Xfconf") ||
                              name.starts_with("org.gtk.vfs.Daemon") ||
                              name.starts_with("org.gtk.vfs.Metadata") ||
                              (thumbnails && name.starts_with("org.xfce.Tumbler"));
        if (isChosen)
            std::filesystem::create_symlink(entry.path(), chosen / name);
    }
    std::string own = contents(Path(VEXMOOR_PACKAGING) / "org.vexmoor.Vexmoor.service");
    const auto program = own.find("Exec=") + 5; // the path after installation
    own.replace(program, own.find('\n', program) - program, VEXMOOR_DESKTOP_PROGRAM);
    write("services/org.vexmoor.Vexmoor.service", own);
}

void DesktopSession::skipWalkthrough() const {
    const Path folder = home() / ".local/share/vexmoor";
    std::filesystem::create_directories(folder);
    const auto defaults = SqliteUserDefaults::open(
        folder / "defaults.db", SqliteUserDefaults::Access::readWrite, [](const Error&) {});
    if (!defaults)
        throw std::runtime_error("no defaults");
    (*defaults)->assign("onboarded", true);
}

void DesktopSession::switchAccessibilityOn() const {
    call({"org.a11y.Bus", "/org/a11y/bus", "org.freedesktop.DBus.Properties"}, "Set",
         {"org.a11y.Status", "IsEnabled", QVariant::fromValue(QDBusVariant(true))});
}

BackgroundProgram DesktopSession::start(const std::vector<std::string>& words,
                                        const BackgroundProgram::Environment& changes) const {
    auto environment = m_environment;
    for (const auto& [name, value] : changes)
        environment[name] = value;
    return BackgroundProgram(words, {.environment = environment, .hasOnlyEnvironment = true});
}

Command DesktopSession::command(std::vector<std::string> words) const {
    Command command(std::move(words));
    command.withNothingElse();
    for (const auto& [name, value] : m_environment)
        command.with(name, value);
    return command;
}

std::string DesktopSession::run(std::vector<std::string> words) const {
    const std::string program = words.front();
    const Command::Result result = command(std::move(words)).run();
    if (result.status != 0)
        throw std::runtime_error(program + ": " + result.errors);
    return result.output;
}

void DesktopSession::xdotool(const std::string& orders) const {
    std::vector<std::string> words{"xdotool"};
    std::istringstream stream(orders);
    for (std::string word; stream >> word;)
        words.push_back(word);
    run(std::move(words));
}

void DesktopSession::click(QPoint point) const {
    xdotool("mousemove " + at(point) + " click 1");
}

void DesktopSession::drag(QPoint from, QPoint to) const {
    const auto onTheWay = [&](double part) { return at(from + (to - from) * part); };
    xdotool("mousemove " + at(from) +
            " mousedown 1 sleep 0.2"
            " mousemove_relative 6 6 sleep 0.05 mousemove_relative 12 12 sleep 0.05"
            " mousemove_relative 24 24 sleep 0.1"
            " mousemove " +
            onTheWay(0.4) + " sleep 0.1 mousemove " + onTheWay(0.8) + " sleep 0.1 mousemove " +
            at(to) + " sleep 0.4 mouseup 1");
}

void DesktopSession::addMonitor(const std::string& name, const QRect& part) {
    const auto side = [](int pixels) {
        return std::to_string(pixels) + "/" + std::to_string(pixels / 4); // the size in millimetres
    };
    run({"xrandr", "--setmonitor", name,
         side(part.width()) + "x" + side(part.height()) + "+" + std::to_string(part.x()) + "+" +
             std::to_string(part.y()),
         std::exchange(m_hasMonitors, true) ? "none" : "screen"});
}

QList<QVariant> DesktopSession::call(const BusObject& object, const char* method,
                                     const QList<QVariant>& arguments) const {
    auto message =
        QDBusMessage::createMethodCall(object.service, object.path, object.interface, method);
    message.setArguments(arguments);
    const QDBusMessage reply = bus().call(message);
    if (reply.type() != QDBusMessage::ReplyMessage)
        throw std::runtime_error(std::string(method) + ": " + reply.errorMessage().toStdString());
    return reply.arguments();
}

bool DesktopSession::hasService(const std::string& name) const {
    return bus().interface()->isServiceRegistered(QString::fromStdString(name));
}

std::vector<std::string> DesktopSession::notifications() const {
    const BusObject daemon{kNotifications, "/org/freedesktop/Notifications",
                           "org.dunstproject.cmd0"};
    call(daemon, "NotificationCloseAll"); // shown notifications are not in the history yet
    const auto all = qdbus_cast<QList<QVariantMap>>(
        call(daemon, "NotificationListHistory").at(0).value<QDBusArgument>());
    std::vector<std::string> result;
    for (const QVariantMap& one : all)
        result.push_back(one["summary"].toString().toStdString() + ": " +
                         one["body"].toString().toStdString());
    return result;
}

void DesktopSession::signal(const std::string& name, int number) const {
    const auto process = bus().interface()->servicePid(QString::fromStdString(name));
    if (!process.isValid())
        throw std::runtime_error(name + " does not run");
    ::kill(static_cast<pid_t>(process.value()), number);
}

} // namespace vexmoor::test
