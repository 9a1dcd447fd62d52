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
    /// How a command interacts with the user.
    struct Manner {
        bool assumesYes = false; ///< answer all questions with yes
        bool isQuiet = false;    ///< report failures only
    };

    /// Opens a session for commands that change something. Acquires the writer lock, waiting for
    /// other commands to finish. Fails without changes if the stores are not writable. If the
    /// desktop application holds the lock, sets `desktopRuns` and returns null.
    static Result<std::unique_ptr<Session>> openForWriting(Manner manner, bool& desktopRuns);

    /// Opens a session for commands that only read. Records an interrupted batch first if no other
    /// process is writing.
    static Result<std::unique_ptr<Session>> openForReading();

    /// Opens a session for shell completions: writes and reports nothing.
    static Result<std::unique_ptr<Session>> openForLooking();

    ~Session();

    /// Runs the work that the intake posted and shows its progress. Ctrl-C stops it between two
    /// items.
    void run();

    /// Returns the options of the command's batch: the session's meter counts and stops it.
    [[nodiscard]] BatchOptions options() const { return {.meter = m_meter}; }

    Ledger& ledger() { return *m_ledger; }
    Settings& settings() { return *m_settings; }
    Progression& progression() { return *m_progression; }
    Intake& intake() { return *m_intake; }
    TerminalDialogs& dialogs() { return m_dialogs; }
    [[nodiscard]] BinnedItems binnedItems() const { return {*m_ledger, m_defaults->records()}; }

    /// The last failure to store an assignment, if any.
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
