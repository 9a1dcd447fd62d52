#include "SqliteConnection.h"

#include "base/Path.h"
#include "base/SqliteError.h"
#include "base/Text.h"

#include <sqlite3.h>

#include <cerrno>

namespace vexmoor {

namespace {

constexpr const char* kOpen = marked("open the database");
constexpr const char* kWrite = marked("write the database");
constexpr int kBusyMilliseconds = 5000;
constexpr int kLogFrames = 32;

/// Commit hook: checkpoints and truncates the log when it exceeds the limit. Without this the log
/// would grow without bound, because each command continues the log of the previous one.
int foldGrownLog(void*, sqlite3* database, const char* name, int frames) {
    if (frames >= kLogFrames) // if a reader blocks this, a later commit tries again
        sqlite3_wal_checkpoint_v2(database, name, SQLITE_CHECKPOINT_TRUNCATE, nullptr, nullptr);
    return SQLITE_OK;
}

} // namespace

void SqliteConnection::Closer::operator()(sqlite3* database) const {
    sqlite3_close(database);
}

void SqliteConnection::Closer::operator()(sqlite3_stmt* statement) const {
    sqlite3_finalize(statement);
}

Result<void> SqliteConnection::open(Access access, bool isImmutable) {
    sqlite3* raw = nullptr;
    const int flags = access == Access::readOnly ? SQLITE_OPEN_READONLY
                                                 : SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE;
    const std::string name =
        isImmutable ? fileUri(m_file) + "?immutable=1" : std::string(m_file.native());
    const int opened =
        sqlite3_open_v2(name.c_str(), &raw,
                        flags | SQLITE_OPEN_NOMUTEX | (isImmutable ? SQLITE_OPEN_URI : 0), nullptr);
    m_database.reset(raw);
    if (opened != SQLITE_OK)
        return lastError(kOpen);
    if (access == Access::readWrite && sqlite3_db_readonly(raw, "main") == 1)
        return Error{{SQLITE_READONLY, sqliteCategory()}, kOpen, m_file};
    sqlite3_extended_result_codes(raw, 1);
    sqlite3_busy_timeout(raw, kBusyMilliseconds);
    // Keep the log for the next command: creating, checkpointing and deleting it for each command
    // would cost more than the rest of a small batch.
    sqlite3_db_config(raw, SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr);
    sqlite3_wal_hook(raw, &foldGrownLog, nullptr);
    int keepLog = 1;
    sqlite3_file_control(raw, "main", SQLITE_FCNTL_PERSIST_WAL, &keepLog);
    return {};
}

Result<void> SqliteConnection::execute(const char* sql, const char* operation) {
    if (!m_database)
        return notOpen(operation);
    if (sqlite3_exec(m_database.get(), sql, nullptr, nullptr, nullptr) != SQLITE_OK)
        return lastError(operation);
    return {};
}

Result<void> SqliteConnection::prepare(const char* sql, const char* operation,
                                       Statement& statement) const {
    sqlite3_stmt* raw = nullptr;
    if (sqlite3_prepare_v2(m_database.get(), sql, -1, &raw, nullptr) != SQLITE_OK)
        return lastError(operation);
    statement.reset(raw);
    return {};
}

Result<int> SqliteConnection::userVersion() const {
    Statement statement;
    if (auto prepared = prepare("PRAGMA user_version", kOpen, statement); !prepared)
        return std::move(prepared).error();
    if (sqlite3_step(statement.get()) != SQLITE_ROW)
        return lastError(kOpen);
    return sqlite3_column_int(statement.get(), 0);
}

void SqliteConnection::prepareFor(Durability durability) {
    if (durability == m_durability)
        return;
    const char* const pragma =
        durability == Durability::onDisk ? "PRAGMA synchronous=FULL" : "PRAGMA synchronous=NORMAL";
    if (execute(pragma, kWrite))
        m_durability = durability;
}

Result<void> SqliteConnection::foldLog() {
    if (!m_database)
        return notOpen(kWrite);
    int frames = 0;
    int folded = 0;
    if (sqlite3_wal_checkpoint_v2(m_database.get(), "main", SQLITE_CHECKPOINT_PASSIVE, &frames,
                                  &folded) != SQLITE_OK)
        return lastError(kWrite);
    return frames == folded ? Result<void>()
                            : Error{{SQLITE_BUSY, sqliteCategory()}, kWrite, m_file};
}

void SqliteConnection::rollBack() {
    if (m_database && sqlite3_get_autocommit(m_database.get()) == 0)
        sqlite3_exec(m_database.get(), "ROLLBACK", nullptr, nullptr, nullptr);
}

Error SqliteConnection::lastError(const char* operation) const {
    const int code = m_database ? sqlite3_extended_errcode(m_database.get()) : SQLITE_NOMEM;
    return {std::error_code(code, sqliteCategory()), operation, m_file};
}

Error SqliteConnection::notOpen(const char* operation) const {
    return Error::fromErrno(EROFS, operation, m_file);
}

} // namespace vexmoor
