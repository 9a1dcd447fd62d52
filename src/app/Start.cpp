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
constexpr auto kSilentWait = 700ms; ///< before the user is told what is waited for

/// Tells on the screen and, for those who started it there, on the terminal.
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
    if (m_service.claimName() == ApplicationService::Claim::taken)
        return forward();
    const auto directories = UserDirectories::ofProcess();
    auto lock = waitForLock(directories.ownData() / WriterLock::kFileName);
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

Start::Outcome Start::forward() {
    const bool taken =
        m_options.items.empty() && m_options.others == 0
            ? m_options.background || m_service.forwardActivate(m_options.startup)
            : m_service.forwardOpen(m_options.items, m_options.others, m_options.startup);
    if (!taken)
        return refuse(tr("Vexmoor is running already"), tr("But it does not answer."));
    return Outcome::forwarded;
}

/// Nothing where another desktop program has the lock, or the user did not want to wait.
Result<std::optional<WriterLock>> Start::waitForLock(const Path& file) {
    using Role = WriterLock::Role;
    auto lock = WriterLock::tryTake(file, Role::desktop);
    const auto isOver = [&] {
        const auto holder = WriterLock::holder(file);
        return !lock || *lock || !holder || *holder == Role::desktop;
    };
    if (isOver())
        return lock;
    QEventLoop loop;
    QMessageBox box(QMessageBox::Information, QStringLiteral("Vexmoor"),
                    tr("A vexmoor command is still at work"), QMessageBox::Cancel);
    box.setInformativeText(tr("The cauldron comes when it is done."));
    QObject::connect(&box, &QMessageBox::rejected, &loop, &QEventLoop::quit);
    QTimer::singleShot(kSilentWait, &box, &QMessageBox::show);
    QTimer retry;
    QObject::connect(&retry, &QTimer::timeout, &loop, [&] {
        lock = WriterLock::tryTake(file, Role::desktop);
        if (isOver())
            loop.quit();
    });
    retry.start(kPause);
    loop.exec();
    return lock;
}

} // namespace vexmoor
