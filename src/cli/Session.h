#pragma once

#include "base/PlainQueue.h"
#include "base/SqliteUserDefaults.h"
#include "cli/Terminal.h"
#include "intake/BinnedItems.h"
#include "intake/Intake.h"
#include "intake/WriterLock.h"

#include <memory>
#include <optional>

namespace vexmoor {

/// The command line's composition root: the stores and the intake of one command.
class Session {
  public:
    /// How it speaks with the user.
    struct Manner {
        bool assumesYes = false; ///< no question is asked
        bool isQuiet = false;    ///< only failures are told
    };

    /// For commands that change something. Holds the writer's lock; waits for other commands to
    /// end. Nothing is touched where the stores cannot be written. `desktopRuns` is set, and there
    /// is no session, where the desktop application holds the lock.
    static Result<std::unique_ptr<Session>> openForWriting(Manner manner, bool& desktopRuns);

    /// For commands that only show. Where a batch was cut off and nobody works, it is recorded
    /// first.
    static Result<std::unique_ptr<Session>> openForReading();

    /// For the shells' completions: records nothing and reports nothing.
    static Result<std::unique_ptr<Session>> openForLooking();

    ~Session();

    /// Runs what the intake posted, showing how far it is; Ctrl-C ends it between two items.
    void run();

    /// For the command's batch: what it does is counted, and stopped, by the session.
    [[nodiscard]] BatchOptions options() const { return {.meter = m_meter}; }

    Ledger& ledger() { return *m_ledger; }
    Settings& settings() { return *m_settings; }
    Progression& progression() { return *m_progression; }
    Intake& intake() { return *m_intake; }
    TerminalDialogs& dialogs() { return m_dialogs; }
    [[nodiscard]] BinnedItems binnedItems() const { return {*m_ledger, m_defaults->records()}; }

    /// The last failure to store an assignment, if there was one.
    [[nodiscard]] const std::optional<Error>& storeError() const { return m_storeError; }

  private:
    explicit Session(Manner manner);
    Result<void> openStores(SqliteUserDefaults::Access access);
    void recoverJournals();
    void tryToRecover();

    class Silence;
    class Announcer;

    bool m_isQuiet;
    UserDirectories m_directories;
    Journal m_journal;
    TerminalDialogs m_dialogs;
    std::optional<WriterLock> m_lock;
    std::optional<Error> m_storeError;
    std::unique_ptr<SqliteUserDefaults> m_defaults;
    std::unique_ptr<Announcer> m_announcer;
    std::unique_ptr<Ledger> m_ledger;
    std::unique_ptr<Settings> m_settings;
    std::unique_ptr<Progression> m_progression;
    std::shared_ptr<WorkMeter> m_meter = std::make_shared<WorkMeter>();
    PlainQueue m_queue;
    std::unique_ptr<Silence> m_silence;
    std::unique_ptr<Intake> m_intake;
};

} // namespace vexmoor
