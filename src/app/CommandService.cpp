#include "CommandService.h"

#include "base/JsonReader.h"
#include "disposal/DisposalError.h"
#include "intake/BatchReport.h"
#include "intake/NamedSettings.h"

#include <QCoreApplication>
#include <QDBusConnectionInterface>
#include <QDBusMetaType>
#include <QPointer>

#include <nlohmann/json.hpp>

#include <algorithm>

namespace vexmoor {
namespace {

constexpr const char* kUsage = "org.vexmoor.Error.Usage";
constexpr const char* kRefused = "org.vexmoor.Error.Refused";
constexpr const char* kEnding = "org.vexmoor.Error.Ending";
constexpr const char* kReportTooLong = "org.vexmoor.Error.ReportTooLong";
constexpr std::size_t kLongestReport = std::size_t{64} << 20; ///< half of what a message may hold

constexpr std::size_t kMostCalls = 256; ///< at once: what more come would only take memory

std::vector<std::string> texts(const QStringList& items) {
    std::vector<std::string> result;
    std::ranges::transform(items, std::back_inserter(result), &QString::toStdString);
    return result;
}

/// Nothing where one of them could be taken for another item than its sender meant.
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

/// A call whose batch is not over. As the dialogs of a batch it says yes, as its caller has been
/// asked, and tells nothing, as its caller tells it, unless there is none any more.
class CommandService::Call : public Dialogs {
  public:
    Call(QDBusMessage message, const QDBusConnection& bus, Dialogs& desktop)
        : m_message(std::move(message)), m_bus(bus), m_desktop(desktop) {}

    void ask(const Question&, std::function<void(const Answer&)> answered) override {
        answered({true, false});
    }
    void report(const FailureReport& report) override {
        const auto* const bus = m_bus.interface(); // none once the connection is lost
        if (!m_message.isReplyRequired() || bus == nullptr ||
            !bus->isServiceRegistered(m_message.service()))
            m_desktop.report(report);
    }
    void beep() override {}

    [[nodiscard]] const QDBusMessage& message() const { return m_message; }
    [[nodiscard]] const std::shared_ptr<WorkMeter>& meter() const { return m_meter; }

  private:
    QDBusMessage m_message;
    QDBusConnection m_bus;
    Dialogs& m_desktop;
    std::shared_ptr<WorkMeter> m_meter = std::make_shared<WorkMeter>();
};

CommandService::CommandService(QObject& object, QDBusConnection bus, Parts parts)
    : QDBusAbstractAdaptor(&object), m_bus(std::move(bus)), m_parts(std::move(parts)) {
    qDBusRegisterMetaType<QByteArrayList>();
}

CommandService::~CommandService() {
    if (m_bus.isConnected()) // the bus answers when it has what was sent before
        (void)m_bus.interface()->serviceOwner(QStringLiteral("org.freedesktop.DBus"));
}

void CommandService::giveBack(const char* name) {
    if (!m_bus.isConnected())
        return;
    (void)m_bus.interface()->unregisterService(QLatin1String(name));
    QCoreApplication::sendPostedEvents(parent()); // calls are posted to the registered object
}

QString CommandService::Feed(const QByteArrayList& items, const QString& mode, bool ask,
                             const QList<qulonglong>& seen, const QDBusMessage& message) {
    const auto chosen = disposeModeFromRawValue(mode.toStdString());
    auto wanted = paths(items);
    if (!chosen && !mode.isEmpty())
        refuse(message, kUsage, "The mode can be: bin, dissolve.");
    else if (!wanted)
        refuse(message, kUsage, "Items are fed by their absolute paths.");
    else if (!seen.isEmpty() && seen.size() != 2 * items.size())
        refuse(message, kUsage, "What was seen is a device and an inode for each item.");
    else
        carryOut(message, ask, [&](BatchOptions options, BatchCompletion completion) {
            options.mode = chosen;
            options.tellsOfThoseOnTheWay = !ask;
            for (qsizetype i = 0; i < seen.size(); i += 2)
                options.seen.push_back({seen[i], seen[i + 1]});
            const bool byKey = ask && m_parts.fedByMenuCommand();
            m_parts.intake.consume(*wanted, byKey, std::move(completion), options);
        });
    return {};
}

QString CommandService::PutBack(const QStringList& items, qulonglong last,
                                const QDBusMessage& message) {
    carryOut(message, false, [&](BatchOptions options, BatchCompletion completion) {
        m_parts.intake.storeLeftOver();
        auto wanted = m_parts.binnedItems.toPutBack(texts(items), last);
        options.missing = std::move(wanted.missing);
        m_parts.intake.restore(std::move(wanted.items), std::move(completion), options);
    });
    return {};
}

QString CommandService::Delete(const QStringList& items, bool ask, const QDBusMessage& message) {
    carryOut(message, ask, [&](BatchOptions options, BatchCompletion completion) {
        auto wanted = m_parts.binnedItems.named(texts(items));
        options.missing = std::move(wanted.missing);
        m_parts.intake.deleteImmediately(std::move(wanted.items), std::move(completion), options);
    });
    return {};
}

void CommandService::Set(const QString& name, const QString& value, const QDBusMessage& message) {
    NamedSettings settings(m_parts.settings, m_parts.progression);
    std::optional<NamedSettings::Complaint> complaint;
    const auto failure = m_parts.store(
        [&] { complaint = settings.assign(name.toStdString(), value.toStdString()); });
    if (failure)
        refuse(message, kRefused, "The setting could not be saved: " + describe(*failure));
    else if (complaint)
        refuse(message,
               complaint->kind == NamedSettings::Complaint::Kind::usage ? kUsage : kRefused,
               complaint->sentence);
}

void CommandService::Stop(const QDBusMessage& message) {
    for (const auto& call : m_calls)
        if (call->message().service() == message.service())
            call->meter()->stop = true;
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

void CommandService::carryOut(const QDBusMessage& message, bool asks,
                              const std::function<void(BatchOptions, BatchCompletion)>& begin) {
    if (m_parts.intake.isStopped()) {
        refuse(message, kEnding, "The desktop application is ending.");
        return;
    }
    if (m_calls.size() >= kMostCalls) {
        refuse(message, kRefused, "Too many orders wait already. Nothing was touched.");
        return;
    }
    message.setDelayedReply(true);
    const auto call = std::make_shared<Call>(message, m_bus, m_parts.dialogs);
    m_calls.push_back(call);
    BatchOptions options;
    options.meter = call->meter();
    if (!asks)
        options.dialogs = call.get();
    begin(std::move(options), [self = QPointer(this), call](BatchResult result) {
        if (self)
            self->answer(*call, std::move(result));
    });
}

void CommandService::answer(Call& call, BatchResult result) {
    const auto& message = call.message();
    const auto text = jsonText(toJson(BatchReport::of(std::move(result))));
    if (text.size() > kLongestReport)
        refuse(message, kReportTooLong,
               "The work is over, but the report is too long to be handed back. See what was done "
               "in the history: vexmoor history.");
    else
        m_bus.send(message.createReply(QString::fromStdString(text)));
    std::erase_if(m_calls, [&](const auto& one) { return one.get() == &call; });
}

void CommandService::refuse(const QDBusMessage& message, const char* error,
                            const std::string& sentence) {
    message.setDelayedReply(true);
    m_bus.send(message.createErrorReply(QLatin1String(error), QString::fromStdString(sentence)));
}

} // namespace vexmoor
