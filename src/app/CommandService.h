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

/// The D-Bus interface through which the command line hands work to the running program
/// (docs/dbus.md). Replies to a call when its batch is finished, with the result of each item. Main
/// thread.
class CommandService : public QDBusAbstractAdaptor {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.vexmoor.Commands1")

  public:
    /// All must outlive it.
    struct Parts {
        Intake& intake;
        Settings& settings;
        Progression& progression;
        BinnedItems binnedItems;
        Dialogs& dialogs; ///< shows failures whose caller has disconnected
        /// Runs an assignment. Returns the error if it could not be stored.
        std::function<std::optional<Error>(const std::function<void()>&)> store;
        /// Called when a file manager's menu command feeds. Returns whether the key triggered the
        /// command.
        std::function<bool()> fedByMenuCommand;
    };

    /// `object` is registered on the bus.
    CommandService(QObject& object, QDBusConnection bus, Parts parts);

    /// Blocks until the replies have been sent.
    ~CommandService() override;

    /// Releases the name and refuses the waiting calls, so that each caller gets a reply. Must be
    /// called after the intake has been stopped.
    void giveBack(const char* name);

  public slots:
    QString Feed(const QByteArrayList& items, const QString& mode, bool ask,
                 const QList<qulonglong>& seen, const QDBusMessage& message);
    QString PutBack(const QStringList& items, qulonglong last, const QDBusMessage& message);
    QString Delete(const QStringList& items, bool ask, const QDBusMessage& message);
    void Set(const QString& name, const QString& value, const QDBusMessage& message);
    void Stop(const QDBusMessage& message);
    qulonglong Progress(const QDBusMessage& message, qulonglong& bytes, qulonglong& removed);

  private slots:
    void dropDeparted(const QString& caller);

  private:
    class Call;
    using Begin = std::function<void(BatchOptions, BatchCompletion)>;

    void carryOut(const QDBusMessage& message, bool asks, Begin begin);
    void begin(const std::shared_ptr<Call>& call);
    void beginWaiting();
    void reportDropped();
    void answer(Call& call, BatchResult result);
    void refuse(const QDBusMessage& message, const char* error, const std::string& sentence);

    QDBusConnection m_bus;
    Parts m_parts;
    std::vector<std::shared_ptr<Call>> m_calls;  ///< with running batches
    std::deque<std::shared_ptr<Call>> m_waiting; ///< with batches that have not begun, oldest first
    std::size_t m_dropped = 0; ///< number of calls dropped without a reply and not logged yet
};

} // namespace vexmoor
