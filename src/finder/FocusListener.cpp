#include "FocusListener.h"

#include "FocusSearch.h"

#include <QDBusConnectionInterface>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusReply>

#include <algorithm>
#include <array>
#include <utility>

namespace vexmoor {

namespace {

constexpr int kTimeoutMilliseconds = 2000;

/// The values of AtspiRole that file managers use for views of files.
enum class Role : uint {
    filler = 20,
    icon = 26,
    layeredPane = 30,
    list = 31,
    listItem = 32,
    panel = 39,
    scrollPane = 49,
    table = 55,
    tableCell = 56,
    tree = 65,
    treeTable = 66,
    tableRow = 90,
    treeItem = 91,
    listBox = 98,
};
constexpr std::array kFileViews{
    Role::filler,    Role::icon,  Role::layeredPane, Role::list,     Role::listItem,
    Role::panel,     Role::table, Role::scrollPane,  Role::tableRow, Role::treeItem,
    Role::tableCell, Role::tree,  Role::treeTable,   Role::listBox};

bool isFileView(uint role) {
    return std::ranges::count(kFileViews, static_cast<Role>(role)) > 0;
}

constexpr std::size_t kMostProcesses = 512;
constexpr const char* kFocusEvent = "object:state-changed:focused";

const QString& busService() {
    static const QString name = QStringLiteral("org.a11y.Bus");
    return name;
}

QString addressOfBus(const QDBusConnection& session) {
    const QDBusReply<QString> address =
        session.call(QDBusMessage::createMethodCall(busService(), QStringLiteral("/org/a11y/bus"),
                                                    busService(), QStringLiteral("GetAddress")),
                     QDBus::Block, kTimeoutMilliseconds);
    return address.value();
}

/// Programs report only events for which a client has registered.
void registerForFocus(const QDBusConnection& bus) {
    auto call = QDBusMessage::createMethodCall(
        QStringLiteral("org.a11y.atspi.Registry"), QStringLiteral("/org/a11y/atspi/registry"),
        QStringLiteral("org.a11y.atspi.Registry"), QStringLiteral("RegisterEvent"));
    call << QString::fromLatin1(kFocusEvent);
    bus.asyncCall(call);
}

} // namespace

FocusTracker::Listener::Listener(FocusTracker& tracker, const QDBusConnection& session)
    : m_tracker(tracker), m_session(session) {}

void FocusTracker::Listener::start() {
    m_watcher = std::make_unique<QDBusServiceWatcher>(busService(), m_session);
    connect(m_watcher.get(), &QDBusServiceWatcher::serviceRegistered, this,
            &Listener::connectToBus);
    connect(m_watcher.get(), &QDBusServiceWatcher::serviceUnregistered, this,
            &Listener::disconnectFromBus);
    connectToBus();
}

void FocusTracker::Listener::stop() {
    m_watcher.reset();
    disconnectFromBus();
}

void FocusTracker::Listener::connectToBus() {
    disconnectFromBus();
    const QString address = addressOfBus(m_session);
    if (address.isEmpty())
        return;
    static int count = 0;
    m_name = QStringLiteral("vexmoor-focus-%1").arg(++count);
    QDBusConnection bus = QDBusConnection::connectToBus(address, m_name);
    if (!bus.isConnected())
        return;
    bus.connect(QString(), QString(), QStringLiteral("org.a11y.atspi.Event.Object"),
                QStringLiteral("StateChanged"), {QStringLiteral("focused")}, QString(), this,
                SLOT(takeFocus(QDBusMessage)));
    registerForFocus(bus);
}

void FocusTracker::Listener::disconnectFromBus() {
    {
        const std::lock_guard lock(m_tracker.m_mutex);
        m_tracker.m_focused.reset();
        m_tracker.m_visible.clear();
    }
    if (!m_name.isEmpty())
        QDBusConnection::disconnectFromBus(std::exchange(m_name, {}));
    m_processes.clear();
}

pid_t FocusTracker::Listener::processOf(const QString& service) {
    const auto known = m_processes.find(service);
    if (known != m_processes.end())
        return known->second;
    if (m_processes.size() == kMostProcesses)
        m_processes.clear();
    const QDBusReply<uint> process = QDBusConnection(m_name).interface()->servicePid(service);
    return m_processes[service] = static_cast<pid_t>(process.value());
}

void FocusTracker::Listener::setFocused(const Element& element) {
    {
        const std::lock_guard lock(m_tracker.m_mutex);
        m_tracker.m_visible.insert(element.process);
        m_tracker.m_focused = element;
        m_tracker.m_showsFiles = false;
        m_tracker.m_lost.reset();
    }
    askRole(element, [](bool) {});
}

void FocusTracker::Listener::search(pid_t process) {
    if (m_name.isEmpty())
        return;
    const FocusSearch search{QDBusConnection(m_name)};
    for (const auto& program : search.programs())
        if (processOf(program.service) == process)
            if (const auto found = search.focusedIn(program))
                setFocused({m_name, found->service, found->path, process});
}

/// Processes events that the program sent before its reply first.
void FocusTracker::Listener::ask(const Element& element,
                                 const std::shared_ptr<std::promise<bool>>& answer) {
    askRole(element, [this, element, answer](bool showsFiles) {
        const auto& focused = m_tracker.m_focused;
        const bool isElsewhere = focused && *focused != element;
        answer->set_value(!showsFiles || isElsewhere);
    });
}

void FocusTracker::Listener::askRole(const Element& element, std::function<void(bool)> answered) {
    const auto call = QDBusMessage::createMethodCall(element.service, element.path,
                                                     QStringLiteral("org.a11y.atspi.Accessible"),
                                                     QStringLiteral("GetRole"));
    auto* const watcher = new QDBusPendingCallWatcher(
        QDBusConnection(element.connection).asyncCall(call, kTimeoutMilliseconds), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this,
            [this, watcher, element, answered = std::move(answered)] {
                watcher->deleteLater();
                const QDBusPendingReply<uint> role = *watcher;
                const bool showsFiles = !role.isError() && isFileView(role.value());
                const std::lock_guard lock(m_tracker.m_mutex);
                if (m_tracker.m_focused == element)
                    m_tracker.m_showsFiles = showsFiles;
                answered(showsFiles);
            });
}

/// The arguments are "focused", 1 or 0 for focus gained or lost, and others that are not used.
void FocusTracker::Listener::takeFocus(const QDBusMessage& event) {
    const bool isFocused = event.arguments().value(1).toInt() == 1;
    const Element element{m_name, event.service(), event.path(), processOf(event.service())};
    if (isFocused) {
        setFocused(element);
        return;
    }
    const std::lock_guard lock(m_tracker.m_mutex);
    m_tracker.m_visible.insert(element.process);
    if (m_tracker.m_focused == element && !m_tracker.m_lost) {
        m_tracker.m_lost = std::chrono::steady_clock::now();
    }
}

} // namespace vexmoor
