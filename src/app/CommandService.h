#pragma once

#include "disposal/Settings.h"
#include "intake/BinnedItems.h"
#include "intake/Intake.h"
#include "progression/Progression.h"

#include <QByteArrayList>
#include <QDBusAbstractAdaptor>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QStringList>

#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace vexmoor {

/// What the command line hands over to the program that runs, as one more interface of an object on
/// the bus (docs/dbus.md). An answer comes when its batch is over, with all that became of it. Main
/// thread.
class CommandService : public QDBusAbstractAdaptor {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.vexmoor.Commands1")

  public:
    /// What it works on; all outlive it.
    struct Parts {
        Intake& intake;
        Settings& settings;
        Progression& progression;
        BinnedItems binnedItems;
        Dialogs& dialogs; ///< told of failures whose caller is gone
        /// Runs an assignment; answers why it could not be stored, if it could not.
        std::function<std::optional<Error>(const std::function<void()>&)> store;
        /// A file manager's menu command feeds; whether its key caused that.
        std::function<bool()> fedByMenuCommand;
    };

    /// `object` is the one that is registered on the bus.
    CommandService(QObject& object, QDBusConnection bus, Parts parts);

    /// Waits until what was answered is on its way.
    ~CommandService() override;

    /// Releases the name, after the intake was stopped, and refuses the calls that came until then
    /// or still wait, so that no caller is left without an answer.
    void giveBack(const char* name);

  public slots:
    QString Feed(const QByteArrayList& items, const QString& mode, bool ask,
                 const QList<qulonglong>& seen, const QDBusMessage& message);
    QString PutBack(const QStringList& items, qulonglong last, const QDBusMessage& message);
    QString Delete(const QStringList& items, bool ask, const QDBusMessage& message);
    void Set(const QString& name, const QString& value, const QDBusMessage& message);
    void Stop(const QDBusMessage& message);
    qulonglong Progress(const QDBusMessage& message, qulonglong& bytes, qulonglong& removed);

  private:
    class Call;
    using Begin = std::function<void(BatchOptions, BatchCompletion)>;

    void carryOut(const QDBusMessage& message, bool asks, Begin begin);
    void begin(const std::shared_ptr<Call>& call);
    void beginWaiting();
    void dropDeparted();
    void reportDropped();
    void answer(Call& call, BatchResult result);
    void refuse(const QDBusMessage& message, const char* error, const std::string& sentence);

    QDBusConnection m_bus;
    Parts m_parts;
    std::vector<std::shared_ptr<Call>> m_calls;  ///< whose batches are not over
    std::deque<std::shared_ptr<Call>> m_waiting; ///< whose batches have not begun, oldest first
    std::size_t m_dropped = 0;                   ///< without an answer, not reported yet
};

} // namespace vexmoor
