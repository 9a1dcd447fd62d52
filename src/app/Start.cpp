#include "Start.h"

#include "disposal/DisposalError.h"

#include <QEventLoop>
#include <QMessageBox>
#include <QTimer>

#include <chrono>
#include <iostream>

namespace vexmoor {
namespace {

using namespace std::chrono_literals;

constexpr auto kPause = 50ms;
constexpr auto kEndOfAnother = 3s;
constexpr auto kSilentWait = 700ms; ///< before the dialog is shown

/// Shows the reason in a message box and writes it to stderr.
Start::Outcome refuse(const QString& message, const QString& informative) {
    std::cerr << "vexmoor-desktop: " << message.toStdString() << ". " << informative.toStdString()
              << "\n";
    QMessageBox box(QMessageBox::Critical, QStringLiteral("Vexmoor"), message);
    box.setTextFormat(Qt::PlainText);
    box.setInformativeText(informative);
    box.exec();
    return Start::Outcome::refused;
}

Start::Outcome refuseForError(const Error& error) {
    return refuse(
        Start::tr("Vexmoor can't open its history"),
        Start::tr("So nothing was touched. %1").arg(QString::fromStdString(describe(error))));
}

} // namespace

Start::Start(ApplicationService& service, const LaunchOptions& options)
    : m_service(service), m_options(options) {}

Start::Outcome Start::begin() {
    if (const auto outcome = claimOrForward())
        return *outcome;
    const auto directories = UserDirectories::ofProcess();
    auto lock = waitForLock(directories.ownData() / WriterLock::kFileName);
    if (m_isCancelled)
        return refuseForUser();
    if (!lock)
        return refuseForError(lock.error());
    if (!*lock)
        return refuse(tr("Vexmoor is running already"),
                      tr("Another session of yours has it. Quit it there first."));
    auto stores = Stores::open(directories, **std::move(lock));
    if (!stores)
        return refuseForError(stores.error());
    m_stores = *std::move(stores);
    return Outcome::running;
}

/// Returns nullopt if this process owns the name or there is no bus.
std::optional<Start::Outcome> Start::claimOrForward() {
    bool isOurs = false;
    auto forwarding = Forwarding::ending;
    waitUntil(tr("Vexmoor is quitting"), tr("It will restart when finished."), [&] {
        isOurs = m_service.claimName() != ApplicationService::Claim::taken;
        if (!isOurs)
            forwarding = forward();
        return isOurs || forwarding != Forwarding::ending;
    });
    if (m_isCancelled)
        return refuseForUser();
    if (isOurs)
        return std::nullopt;
    if (forwarding == Forwarding::unanswered)
        return refuse(tr("Vexmoor is running already"), tr("But it does not answer."));
    return Outcome::forwarded;
}

Start::Forwarding Start::forward() {
    if (!m_options.items.empty() || m_options.others > 0)
        return m_service.forwardOpen(m_options.items, m_options.others, m_options.startup);
    return m_options.background ? Forwarding::taken : m_service.forwardActivate(m_options.startup);
}

/// Returns nullopt if another desktop program holds the lock and is not quitting. A program that
/// quits leaves the bus before it releases the lock.
Result<std::optional<WriterLock>> Start::waitForLock(const Path& file) {
    using Role = WriterLock::Role;
    const auto end = std::chrono::steady_clock::now() + kEndOfAnother;
    auto lock = Result<std::optional<WriterLock>>(std::nullopt);
    waitUntil(tr("Vexmoor is still at work"), tr("The cauldron comes when it is done."), [&] {
        lock = WriterLock::tryTake(file, Role::desktop);
        if (!lock || *lock)
            return true;
        const auto holder = WriterLock::holder(file);
        return holder && *holder == Role::desktop && std::chrono::steady_clock::now() > end;
    });
    return lock;
}

/// Runs the event loop until `isOver` returns true or the user cancels the dialog.
void Start::waitUntil(const QString& message, const QString& informative,
                      const std::function<bool()>& isOver) {
    if (isOver())
        return;
    QEventLoop loop;
    QMessageBox box(QMessageBox::Information, QStringLiteral("Vexmoor"), message,
                    QMessageBox::Cancel);
    box.setInformativeText(informative);
    QObject::connect(&box, &QMessageBox::rejected, &loop, [&] {
        m_isCancelled = true;
        loop.quit();
    });
    QTimer::singleShot(kSilentWait, &box, &QMessageBox::show);
    QTimer retry;
    QObject::connect(&retry, &QTimer::timeout, &loop, [&] {
        if (isOver())
            loop.quit();
    });
    retry.start(kPause);
    loop.exec();
}

/// Reports a cancelled start only if it, or another start that waited for it, had items to feed.
Start::Outcome Start::refuseForUser() const {
    if (m_options.items.empty() && !m_service.hasOrders())
        return Outcome::refused;
    return refuse(tr("Vexmoor did not start"), tr("What was to be fed was left as it was."));
}

} // namespace vexmoor
