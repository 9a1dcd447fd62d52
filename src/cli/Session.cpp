#include "Session.h"

#include "base/ByteCount.h"
#include "base/Text.h"
#include "cli/Interrupt.h"
#include "cli/ProgressLine.h"
#include "intake/Recovery.h"

#include <unistd.h>

#include <iostream>
#include <utility>

namespace vexmoor {

namespace {

constexpr int kSilentLooks =
    20; ///< polls of a lock held by another command before a message: about a second

} // namespace

/// Null implementations: a terminal shows no animation and plays no sound.
class Session::Silence : public BatchAnimation,
                         public SizzlePlayer,
                         public Thumbnails,
                         public UndoKey {
  public:
    void play(std::vector<PicturePointer>) override {}
    void play() override {}
    void load(const Path&, std::function<void(PicturePointer)> completion) override {
        completion(nullptr);
    }
    PicturePointer loadNow(const Path&) override { return nullptr; }
    void disarm() override {}
};

/// Collects earned achievements and prints them on stderr after the command's result. Only used on
/// a terminal, so that scripts and cron get none.
class Session::Announcer : public NotificationPort {
  public:
    void requestAuthorization(std::function<void(bool)> completion) override { completion(true); }
    void post(const Notification& notification) override { m_waiting.push_back(notification); }

    void print() {
        for (const auto& [identifier, title, body] : std::exchange(m_waiting, {}))
            std::cerr << title << "\n  " << body << "\n";
    }

  private:
    std::vector<Notification> m_waiting;
};

Session::Session(Manner manner)
    : m_isQuiet(manner.isQuiet), m_directories(UserDirectories::ofProcess()),
      m_journal(m_directories.ownData() / "journal"), m_dialogs(manner.assumesYes),
      m_announcer(std::make_unique<Announcer>()), m_silence(std::make_unique<Silence>()) {}

Session::~Session() = default;

Result<std::unique_ptr<Session>> Session::openForWriting(Manner manner, bool& desktopRuns) {
    std::unique_ptr<Session> session(new Session(manner));
    WorkMeter waiting;
    const Interrupt interrupt(waiting, Interrupt::Work::own);
    int looks = 0;
    auto lock = WriterLock::take(session->m_directories.ownData() / WriterLock::kFileName,
                                 WriterLock::Role::command, [&] {
                                     if (++looks == kSilentLooks && !manner.isQuiet)
                                         complain(text("Waiting for another command to end."));
                                     return waiting.stop.load();
                                 });
    if (!lock)
        return std::move(lock).error();
    if (!*lock) {
        desktopRuns = !waiting.stop;
        return Error::fromErrno(EINTR, "wait for another command");
    }
    session->m_lock = *std::move(lock);
    if (auto opened = session->openStores(SqliteUserDefaults::Access::readWrite); !opened)
        return std::move(opened).error();
    session->recoverJournals();
    return session;
}

Result<std::unique_ptr<Session>> Session::openForLooking() {
    std::unique_ptr<Session> session(new Session(Manner()));
    if (auto opened = session->openStores(SqliteUserDefaults::Access::readOnly); !opened)
        return std::move(opened).error();
    return session;
}

Result<std::unique_ptr<Session>> Session::openForReading() {
    auto session = openForLooking();
    if (session && needsRecovery((*session)->m_journal, *(*session)->m_defaults,
                                 (*session)->binnedItems(), (*session)->m_directories))
        (*session)->tryToRecover();
    return session;
}

void Session::tryToRecover() {
    auto lock = WriterLock::tryTake(m_directories.ownData() / WriterLock::kFileName,
                                    WriterLock::Role::command);
    if (!lock || !*lock || !openStores(SqliteUserDefaults::Access::readWrite))
        return;
    m_lock = *std::move(lock);
    recoverJournals();
}

Result<void> Session::openStores(SqliteUserDefaults::Access access) {
    auto defaults = SqliteUserDefaults::open(m_directories.ownData() / "defaults.db", access,
                                             [this](const Error& error) { m_storeError = error; });
    if (!defaults)
        return std::move(defaults).error();
    m_defaults = *std::move(defaults);
    if (const auto& aside = m_defaults->setAside())
        complain(text("The database was damaged. It was set aside as %1 and a fresh one was begun.",
                      {printable(aside->native())}));
    m_ledger = std::make_unique<Ledger>(*m_defaults, &Date::now);
    m_settings = std::make_unique<Settings>(*m_defaults);
    m_progression = std::make_unique<Progression>(*m_defaults, m_ledger.get(), &Date::now,
                                                  *m_announcer, [](const Skin&) {});
    m_intake = std::make_unique<Intake>(
        Intake::Parts{m_directories, *m_defaults, *m_ledger, *m_settings, *m_progression,
                      binnedItems(), m_journal, nullptr, m_queue, m_queue, m_dialogs, *m_silence,
                      *m_silence, *m_silence, *m_silence, &Date::now});
    return {};
}

void Session::recoverJournals() {
    const auto report =
        recover(m_journal, *m_defaults, *m_ledger, *m_progression, binnedItems(), m_directories);
    if (report.disposed + report.putBack + report.deleted > 0)
        complain(text(
            "An earlier batch was cut off. What it had done is recorded now: %1 "
            "disposed of, %2 put back, %3 deleted.",
            {countText(report.disposed), countText(report.putBack), countText(report.deleted)}));
    for (const auto& [name, error, path] : report.failures)
        complain(
            text("From an earlier batch: %1: %2", {printable(name), printable(describe(error))}));
    for (const auto& problem : report.problems)
        complain(text("The journal of an earlier batch: %1", {printable(describe(problem))}));
    m_progression->notify(report.unlocked);
}

void Session::run() {
    {
        const Interrupt interrupt(*m_meter, Interrupt::Work::own);
        const ProgressLine progress(*m_meter, !m_isQuiet);
        m_queue.runUntilEmpty();
    }
    if (!m_isQuiet && ::isatty(STDERR_FILENO) != 0)
        m_announcer->print();
}

} // namespace vexmoor
