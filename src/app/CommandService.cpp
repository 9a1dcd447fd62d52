#include "CommandService.h"

#include "base/JsonReader.h"
#include "base/Text.h"
#include "disposal/DisposalError.h"
#include "intake/BatchReport.h"
#include "intake/NamedSettings.h"
#include "intake/Texts.h"

#include <QCoreApplication>
#include <QDBusConnectionInterface>
#include <QDBusMetaType>
#include <QPointer>

#include <nlohmann/json.hpp>

#include <algorithm>
#include <utility>

namespace vexmoor {
namespace {

constexpr const char* kUsage = "org.vexmoor.Error.Usage";
constexpr const char* kRefused = "org.vexmoor.Error.Refused";
constexpr const char* kEnding = "org.vexmoor.Error.Ending";
constexpr const char* kReportTooLong = "org.vexmoor.Error.ReportTooLong";
constexpr std::size_t kLongestReport = std::size_t{64} << 20; ///< half of the maximum D-Bus message

// Limits of memory use.
constexpr std::size_t kMostCalls =
    256; ///< batches that are running or asking at the same time; further ones wait
constexpr std::size_t kMostWaiting = 1024;

std::vector<std::string> texts(const QStringList& items) {
    std::vector<std::string> result;
    std::ranges::transform(items, std::back_inserter(result), &QString::toStdString);
    return result;
}

/// Returns nullopt if a path is not absolute, or contains a NUL, which would truncate it.
std::optional<std::vector<Path>> paths(const QByteArrayList& items) {
    std::vector<Path> result;
    for (const auto& item : items) {
        if (!item.startsWith('/') || item.contains('\0'))
            return std::nullopt;
        result.emplace_back(item.toStdString());
    }
    return result;
}

} // namespace

/// A call whose batch is unfinished. Serves as the batch's dialogs: answers yes, because the caller
/// has asked the user, and shows nothing, because the caller prints the failures. If the caller has
/// disconnected, the desktop's dialogs show them.
class CommandService::Call : public Dialogs {
  public:
    Call(QDBusMessage message, bool asks, Begin begin, const QDBusConnection& bus, Dialogs& desktop)
        : m_message(std::move(message)), m_asks(asks), m_begin(std::move(begin)), m_bus(bus),
          m_desktop(desktop) {}

    void begin(BatchCompletion completion) {
        BatchOptions options;
        options.meter = m_meter;
        if (!m_asks)
            options.dialogs = this;
        std::exchange(m_begin, {})(std::move(options), std::move(completion));
    }

    void ask(const Question&, std::function<void(const Answer&)> answered) override {
        answered({true, false});
    }
    void report(const FailureReport& report) override {
        const auto* const bus = m_bus.interface(); // null once the connection is lost
        if (!m_message.isReplyRequired() || bus == nullptr ||
            !bus->isServiceRegistered(m_message.service()))
            m_desktop.report(report);
    }
    void beep() override {}

    [[nodiscard]] const QDBusMessage& message() const { return m_message; }
    [[nodiscard]] const std::shared_ptr<WorkMeter>& meter() const { return m_meter; }

  private:
    QDBusMessage m_message;
    bool m_asks;
    Begin m_begin;
    QDBusConnection m_bus;
    Dialogs& m_desktop;
    std::shared_ptr<WorkMeter> m_meter = std::make_shared<WorkMeter>();
};

CommandService::CommandService(QObject& object, QDBusConnection bus, Parts parts)
    : QDBusAbstractAdaptor(&object), m_bus(std::move(bus)), m_parts(std::move(parts)) {
    qDBusRegisterMetaType<QByteArrayList>();
    // Watches the callers' names: a query to the bus would wait behind all messages of a flood.
    const QString daemon = QStringLiteral("org.freedesktop.DBus");
    m_bus.connect(daemon, QStringLiteral("/org/freedesktop/DBus"), daemon,
                  QStringLiteral("NameOwnerChanged"), {QString(), QString(), QStringLiteral("")},
                  QString(), this, SLOT(dropDeparted(QString)));
}

CommandService::~CommandService() {
    if (m_bus.isConnected()) // a round trip, so that earlier messages have arrived
        (void)m_bus.interface()->serviceOwner(QStringLiteral("org.freedesktop.DBus"));
}

void CommandService::giveBack(const char* name) {
    if (!m_bus.isConnected())
        return;
    (void)m_bus.interface()->unregisterService(QLatin1String(name));
    QCoreApplication::sendPostedEvents(parent()); // calls are posted to the registered object
    beginWaiting();
}

QString CommandService::Feed(const QByteArrayList& items, const QString& mode, bool ask,
                             const QList<qulonglong>& seen, const QDBusMessage& message) {
    const auto chosen = disposeModeFromRawValue(mode.toStdString());
    auto wanted = paths(items);
    if (!chosen && !mode.isEmpty())
        refuse(message, kUsage, marked("The mode can be: bin, dissolve."));
    else if (!wanted)
        refuse(message, kUsage, marked("Items are fed by their absolute paths."));
    else if (!seen.isEmpty() && seen.size() != 2 * items.size())
        refuse(message, kUsage, marked("What was seen is a device and an inode for each item."));
    else
        carryOut(message, ask,
                 [this, chosen, ask, seen,
                  wanted = *std::move(wanted)](BatchOptions options, BatchCompletion completion) {
                     options.mode = chosen;
                     options.tellsOfThoseOnTheWay = !ask;
                     for (qsizetype i = 0; i < seen.size(); i += 2)
                         options.seen.push_back({seen[i], seen[i + 1]});
                     const bool byKey = ask && m_parts.fedByMenuCommand();
                     m_parts.intake.consume(wanted, byKey, std::move(completion), options);
                 });
    return {};
}

QString CommandService::PutBack(const QStringList& items, qulonglong last,
                                const QDBusMessage& message) {
    carryOut(message, false, [this, items, last](BatchOptions options, BatchCompletion completion) {
        m_parts.intake.storeLeftOver();
        auto wanted = m_parts.binnedItems.toPutBack(texts(items), last);
        options.missing = std::move(wanted.missing);
        m_parts.intake.restore(std::move(wanted.items), std::move(completion), options);
    });
    return {};
}

QString CommandService::Delete(const QStringList& items, bool ask, const QDBusMessage& message) {
    carryOut(message, ask, [this, items](BatchOptions options, BatchCompletion completion) {
        auto wanted = m_parts.binnedItems.named(texts(items));
        options.missing = std::move(wanted.missing);
        m_parts.intake.deleteImmediately(std::move(wanted.items), std::move(completion), options);
    });
    return {};
}

void CommandService::Set(const QString& name, const QString& value, const QDBusMessage& message) {
    NamedSettings settings(m_parts.settings, m_parts.progression);
    std::optional<NamedSettings::Complaint> complaint;
    const InEnglish forMachines;
    const auto failure = m_parts.store(
        [&] { complaint = settings.assign(name.toStdString(), value.toStdString()); });
    if (failure)
        refuse(message, kRefused, text("The setting could not be saved: %1", {describe(*failure)}));
    else if (complaint)
        refuse(message,
               complaint->kind == NamedSettings::Complaint::Kind::usage ? kUsage : kRefused,
               complaint->sentence);
}

void CommandService::Stop(const QDBusMessage& message) {
    for (const auto& call : m_calls)
        if (call->message().service() == message.service())
            call->meter()->stop = true;
    std::vector<std::shared_ptr<Call>> stopped; // begun only to report their items as untouched
    std::erase_if(m_waiting, [&](const auto& call) {
        const bool isOwn = call->message().service() == message.service();
        if (isOwn)
            stopped.push_back(call);
        return isOwn;
    });
    for (const auto& call : stopped) {
        call->meter()->stop = true;
        begin(call);
    }
}

qulonglong CommandService::Progress(const QDBusMessage& message, qulonglong& bytes,
                                    qulonglong& removed) {
    qulonglong entries = 0;
    bytes = 0;
    removed = 0;
    for (const auto& call : m_calls) {
        if (call->message().service() != message.service())
            continue;
        const WorkMeter& meter = *call->meter();
        entries += static_cast<qulonglong>(meter.entries.load());
        bytes += static_cast<qulonglong>(meter.bytes.load());
        removed += static_cast<qulonglong>(meter.removed.load());
    }
    return entries;
}

void CommandService::carryOut(const QDBusMessage& message, bool asks, Begin begin) {
    if (m_parts.intake.isStopped()) {
        refuse(message, kEnding, marked("The desktop application is quitting."));
        return;
    }
    if (m_waiting.size() >= kMostWaiting) {
        m_dropped += message.isReplyRequired() ? 0 : 1;
        refuse(message, kRefused, marked("Too many commands wait already. Nothing was touched."));
        return;
    }
    message.setDelayedReply(true);
    m_waiting.push_back(
        std::make_shared<Call>(message, asks, std::move(begin), m_bus, m_parts.dialogs));
    if (m_waiting.size() == 1 && m_calls.size() < kMostCalls) {
        const auto call = m_waiting.front();
        m_waiting.pop_front();
        this->begin(call);
    }
}

void CommandService::begin(const std::shared_ptr<Call>& call) {
    m_calls.push_back(call);
    call->begin([self = QPointer(this), call](BatchResult result) {
        if (self)
            self->answer(*call, std::move(result));
    });
}

/// Begins waiting batches up to the limit; refuses all of them once the intake has been stopped.
void CommandService::beginWaiting() {
    const bool isEnding = m_parts.intake.isStopped();
    while (!m_waiting.empty() && (m_calls.size() < kMostCalls || isEnding)) {
        const auto call = m_waiting.front();
        m_waiting.pop_front();
        if (isEnding)
            refuse(call->message(), kEnding, marked("The desktop application is quitting."));
        else
            begin(call);
    }
    if (m_calls.empty() || isEnding) // one report instead of thousands
        reportDropped();
}

/// Drops the waiting calls of a caller that has disconnected: none of their items was touched.
void CommandService::dropDeparted(const QString& caller) {
    m_dropped += std::erase_if(
        m_waiting, [&](const auto& call) { return call->message().service() == caller; });
}

void CommandService::reportDropped() {
    if (const auto dropped = std::exchange(m_dropped, 0); dropped > 0)
        m_parts.dialogs.report(droppedCommands(dropped));
}

void CommandService::answer(Call& call, BatchResult result) {
    const auto& message = call.message();
    const auto text = message.isReplyRequired()
                          ? jsonText(toJson(BatchReport::of(std::move(result))))
                          : std::string();
    if (text.size() > kLongestReport)
        refuse(message, kReportTooLong,
               marked("The work is over, but the report is too long to be handed back. See what "
                      "was done in the history: vexmoor history."));
    else if (message.isReplyRequired())
        m_bus.send(message.createReply(QString::fromStdString(text)));
    std::erase_if(m_calls, [&](const auto& one) { return one.get() == &call; });
    if (!m_waiting.empty() || m_dropped > 0) // queued, because the intake is still processing
        QMetaObject::invokeMethod(this, &CommandService::beginWaiting, Qt::QueuedConnection);
}

/// In English: the caller's language may differ from this process's.
void CommandService::refuse(const QDBusMessage& message, const char* error,
                            const std::string& sentence) {
    message.setDelayedReply(true);
    if (message.isReplyRequired())
        m_bus.send(
            message.createErrorReply(QLatin1String(error), QString::fromStdString(sentence)));
}

} // namespace vexmoor
