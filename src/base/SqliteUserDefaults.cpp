#include "SqliteUserDefaults.h"

#include "base/FileDescriptor.h"
#include "base/Path.h"
#include "base/SqliteRecordTable.h"
#include "base/Text.h"

#include <fcntl.h>
#include <sqlite3.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>

namespace vexmoor {

namespace {

constexpr int kBusyMilliseconds = 5000;
constexpr int kFormatVersion = 2;
constexpr const char* kPrepare = "PRAGMA journal_mode=WAL; PRAGMA synchronous=FULL;";
/// Creates the tables of a new database, or upgrades version 1, which had only the defaults.
constexpr const char* kCreate = "PRAGMA journal_mode=WAL; PRAGMA synchronous=FULL;"
                                "BEGIN IMMEDIATE;"
                                "CREATE TABLE IF NOT EXISTS defaults ("
                                "  key TEXT PRIMARY KEY NOT NULL,"
                                "  kind TEXT NOT NULL"
                                "    CHECK (kind IN ('bool', 'integer', 'string', 'data')),"
                                "  value NOT NULL"
                                ") WITHOUT ROWID;"
                                "CREATE TABLE IF NOT EXISTS records ("
                                "  key INTEGER PRIMARY KEY,"
                                "  batch INTEGER NOT NULL,"
                                "  id BLOB NOT NULL,"
                                "  name BLOB NOT NULL,"
                                "  content BLOB NOT NULL"
                                ");"
                                "PRAGMA user_version=2;"
                                "COMMIT;";
constexpr const char* kKinds[] = {"bool", "integer", "string", "data"};

class SqliteCategory : public NamedCategory {
  public:
    [[nodiscard]] const char* name() const noexcept override { return "sqlite"; }

    [[nodiscard]] std::string message(int code) const override {
        switch (code & 0xff) {
        case SQLITE_BUSY:
        case SQLITE_LOCKED:
            return text("The database is in use by another program");
        case SQLITE_READONLY:
        case SQLITE_PERM:
            return text("The database cannot be written");
        case SQLITE_FULL:
            return messageOf(std::make_error_code(std::errc::no_space_on_device));
        case SQLITE_MISMATCH:
            return text("The database was written by a newer version of this program");
        default:
            return sqlite3_errstr(code);
        }
    }

    [[nodiscard]] std::string codeName(int code) const override {
        switch (code & 0xff) {
        case SQLITE_BUSY:
        case SQLITE_LOCKED:
            return "databaseBusy";
        case SQLITE_READONLY:
        case SQLITE_PERM:
            return "databaseReadOnly";
        case SQLITE_FULL:
            return "databaseFull";
        case SQLITE_MISMATCH:
            return "databaseTooNew";
        default:
            return "databaseError";
        }
    }
};

/// A database of our version without our table makes SQLite return SQLITE_ERROR.
bool isCorrupt(const Error& error) {
    const int primary = error.code.value() & 0xff;
    return error.code.category() == sqliteCategory() &&
           (primary == SQLITE_CORRUPT || primary == SQLITE_NOTADB || primary == SQLITE_ERROR);
}

constexpr const char* kCompanions[] = {"-wal", "-shm", ""};

std::filesystem::path companion(std::filesystem::path file, const char* suffix) {
    return file += suffix;
}

/// True if the write-ahead log may contain changes that are not in the database.
bool hasLog(const std::filesystem::path& file) {
    std::error_code code;
    const auto size = std::filesystem::file_size(companion(file, "-wal"), code);
    return code ? code != std::errc::no_such_file_or_directory : size > 0;
}

/// True if the database is missing or empty but its write-ahead log has content. SQLite would treat
/// the database as new and delete the log, although it never creates a log before the database's
/// first page.
bool hasLostItsPages(const std::filesystem::path& file) {
    if (!hasLog(file))
        return false;
    std::error_code code;
    const auto size = std::filesystem::file_size(file, code);
    return code ? code == std::errc::no_such_file_or_directory : size == 0;
}

bool isUnopenable(const Error& error) {
    const int primary = error.code.value() & 0xff;
    return error.code.category() == sqliteCategory() &&
           (primary == SQLITE_CANTOPEN || primary == SQLITE_READONLY);
}

constexpr int kLogFrames = 32;

/// Commit hook: checkpoints and truncates the log when it exceeds the limit. Without this the log
/// would grow without bound, because each command continues the log of the previous one.
int foldLog(void*, sqlite3* database, const char* name, int frames) {
    if (frames >= kLogFrames) // if a reader blocks this, a later commit tries again
        sqlite3_wal_checkpoint_v2(database, name, SQLITE_CHECKPOINT_TRUNCATE, nullptr, nullptr);
    return SQLITE_OK;
}

/// Resets a cached statement and clears its bindings on destruction.
class StatementReset {
  public:
    explicit StatementReset(sqlite3_stmt* statement) : m_statement(statement) {}
    ~StatementReset() {
        sqlite3_reset(m_statement);
        sqlite3_clear_bindings(m_statement);
    }
    StatementReset(const StatementReset&) = delete;
    StatementReset& operator=(const StatementReset&) = delete;

  private:
    sqlite3_stmt* const m_statement;
};

std::string blob(sqlite3_stmt* row, int column) {
    const auto size = static_cast<std::size_t>(sqlite3_column_bytes(row, column));
    const auto* const bytes = static_cast<const char*>(sqlite3_column_blob(row, column));
    return bytes == nullptr ? std::string() : std::string(bytes, size);
}

/// Returns the value of a row (key, kind, value), or nullopt if the value does not match the kind.
std::optional<UserDefaults::Value> valueOf(sqlite3_stmt* row) {
    const std::string kind = blob(row, 1);
    const int type = sqlite3_column_type(row, 2);
    if (kind == "bool" && type == SQLITE_INTEGER)
        return sqlite3_column_int64(row, 2) != 0;
    if (kind == "integer" && type == SQLITE_INTEGER)
        return std::int64_t{sqlite3_column_int64(row, 2)};
    if (kind == "string" && type == SQLITE_TEXT)
        return blob(row, 2);
    if (kind == "data" && type == SQLITE_BLOB)
        return UserDefaults::Data{blob(row, 2)};
    return std::nullopt;
}

void bind(sqlite3_stmt* statement, int index, const UserDefaults::Value& value) {
    if (const auto* const flag = std::get_if<bool>(&value))
        sqlite3_bind_int64(statement, index, *flag ? 1 : 0);
    else if (const auto* const number = std::get_if<std::int64_t>(&value))
        sqlite3_bind_int64(statement, index, *number);
    else if (const auto* const text = std::get_if<std::string>(&value))
        sqlite3_bind_text64(statement, index, text->data(), text->size(), SQLITE_STATIC,
                            SQLITE_UTF8);
    else {
        const auto& bytes = std::get<UserDefaults::Data>(value).bytes;
        sqlite3_bind_blob64(statement, index, bytes.data(), bytes.size(), SQLITE_STATIC);
    }
}

constexpr off_t kReserveBytes = 1024 * 1024;
constexpr const char* kReserve = ".reserve";

/// Reserves disk space for the log, so that changes that free space can be stored on a full disk.
void keepReserve(const std::filesystem::path& file) {
    const auto reserve = companion(file, kReserve);
    struct stat status {};
    if (::stat(reserve.c_str(), &status) == 0 && status.st_size >= kReserveBytes)
        return;
    const FileDescriptor descriptor(
        ::open(reserve.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK, 0600));
    if (!descriptor || ::posix_fallocate(descriptor.get(), 0, kReserveBytes) != 0)
        ::unlink(reserve.c_str()); // without space there is no reserve
}

bool releaseReserve(const std::filesystem::path& file) {
    return ::unlink(companion(file, kReserve).c_str()) == 0;
}

bool isFull(const Error& error) {
    return error.code.category() == sqliteCategory() && (error.code.value() & 0xff) == SQLITE_FULL;
}

/// Renames the database and SQLite's files beside it, using the first free number. The caller holds
/// the writer's lock, so that no other program takes the name.
Result<std::filesystem::path> moveAside(const std::filesystem::path& file) {
    std::error_code code;
    std::filesystem::path aside;
    int number = 0;
    const auto taken = [&](const char* suffix) {
        return std::filesystem::exists(companion(aside, suffix), code);
    };
    do {
        aside = companion(file, (".corrupt-" + std::to_string(++number)).c_str());
    } while (std::ranges::any_of(kCompanions, taken));
    for (const char* suffix : kCompanions) {
        const auto from = companion(file, suffix);
        std::filesystem::rename(from, companion(aside, suffix), code);
        if (code && code != std::errc::no_such_file_or_directory)
            return Error{code, marked("rename the corrupt database"), from};
    }
    return aside;
}

/// Restricts the folder to the user: its contents show what the user deleted.
Result<void> makePrivateFolder(const std::filesystem::path& folder) {
    std::error_code code;
    if (std::filesystem::create_directories(folder, code) && !code)
        std::filesystem::permissions(folder, std::filesystem::perms::owner_all, code);
    return code ? Result<void>(Error{code, marked("create the folder of the database"), folder})
                : Result<void>();
}

} // namespace

const std::error_category& sqliteCategory() {
    static const SqliteCategory category;
    return category;
}

std::optional<std::error_code> databaseCodeNamed(std::string_view name) {
    for (const int code : {SQLITE_BUSY, SQLITE_READONLY, SQLITE_FULL, SQLITE_MISMATCH})
        if (const std::error_code known(code, sqliteCategory()); codeName(known) == name)
            return known;
    return std::nullopt;
}

void SqliteUserDefaults::Closer::operator()(sqlite3* database) const {
    sqlite3_close(database);
}

void SqliteUserDefaults::Closer::operator()(sqlite3_stmt* statement) const {
    sqlite3_finalize(statement);
}

SqliteUserDefaults::SqliteUserDefaults(std::filesystem::path file, FailureHandler onFailure)
    : m_file(std::move(file)), m_onFailure(std::move(onFailure)),
      m_records(std::make_unique<SqliteRecordTable>(*this)) {}

SqliteUserDefaults::~SqliteUserDefaults() = default;

RecordTable& SqliteUserDefaults::records() {
    return *m_records;
}

Result<std::unique_ptr<SqliteUserDefaults>>
SqliteUserDefaults::open(const std::filesystem::path& file, Access access,
                         FailureHandler onFailure) {
    if (access == Access::readWrite)
        if (auto made = makePrivateFolder(file.parent_path()); !made)
            return std::move(made).error();
    std::unique_ptr<SqliteUserDefaults> store(new SqliteUserDefaults(file, std::move(onFailure)));
    auto opened = store->connect(access);
    if (!opened && access == Access::readOnly && isUnopenable(opened.error()) && !hasLog(file)) {
        // SQLite cannot create a log in a read-only folder, so no other program writes either. An
        // existing log must not be ignored, because it holds the newest changes.
        store->m_immutable = true;
        opened = store->connect(access);
    }
    if (!opened && isCorrupt(opened.error()) && access == Access::readWrite) {
        store->m_database.reset();
        store->m_values.clear();
        auto aside = moveAside(file);
        if (!aside)
            return std::move(aside).error();
        store->m_setAside = *std::move(aside);
        opened = store->connect(access);
    }
    if (!opened)
        return std::move(opened).error();
    return store;
}

Result<void> SqliteUserDefaults::connect(Access access) {
    std::error_code code;
    if (hasLostItsPages(m_file))
        return Error{{SQLITE_CORRUPT, sqliteCategory()}, marked("open the database"), m_file};
    if (access == Access::readOnly && !std::filesystem::exists(m_file, code))
        return code ? Result<void>(Error{code, marked("open the database"), m_file})
                    : Result<void>();
    sqlite3* raw = nullptr;
    const int flags = access == Access::readOnly ? SQLITE_OPEN_READONLY
                                                 : SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE;
    const std::string name =
        m_immutable ? fileUri(m_file) + "?immutable=1" : std::string(m_file.native());
    const int opened =
        sqlite3_open_v2(name.c_str(), &raw,
                        flags | SQLITE_OPEN_NOMUTEX | (m_immutable ? SQLITE_OPEN_URI : 0), nullptr);
    m_database.reset(raw);
    if (opened != SQLITE_OK)
        return lastError("open the database");
    if (access == Access::readWrite && sqlite3_db_readonly(raw, "main") == 1)
        return Error{{SQLITE_READONLY, sqliteCategory()}, marked("open the database"), m_file};
    sqlite3_extended_result_codes(raw, 1);
    sqlite3_busy_timeout(raw, kBusyMilliseconds);
    // Keep the log for the next command: creating, checkpointing and deleting it for each command
    // would cost more than the rest of a small batch.
    sqlite3_db_config(raw, SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr);
    sqlite3_wal_hook(raw, &foldLog, nullptr);
    int keepLog = 1;
    sqlite3_file_control(raw, "main", SQLITE_FCNTL_PERSIST_WAL, &keepLog);
    auto version = formatVersion();
    if (!version)
        return std::move(version).error();
    if (*version > kFormatVersion)
        return Error{{SQLITE_MISMATCH, sqliteCategory()}, marked("open the database"), m_file};
    if (access == Access::readWrite)
        if (auto done = execute(*version < kFormatVersion ? kCreate : kPrepare,
                                marked("open the database"));
            !done)
            return done;
    if (access == Access::readWrite)
        keepReserve(m_file);
    m_hasRecords = access == Access::readWrite || *version == kFormatVersion;
    return *version == 0 ? Result<void>() : load();
}

Result<void> SqliteUserDefaults::prepare(const char* sql, const char* operation,
                                         Statement& statement) const {
    sqlite3_stmt* raw = nullptr;
    if (sqlite3_prepare_v2(m_database.get(), sql, -1, &raw, nullptr) != SQLITE_OK)
        return lastError(operation);
    statement.reset(raw);
    return {};
}

Result<int> SqliteUserDefaults::formatVersion() {
    Statement statement;
    if (auto prepared = prepare("PRAGMA user_version", marked("open the database"), statement);
        !prepared)
        return std::move(prepared).error();
    if (sqlite3_step(statement.get()) != SQLITE_ROW)
        return lastError("open the database");
    return sqlite3_column_int(statement.get(), 0);
}

Result<void> SqliteUserDefaults::load() {
    Statement statement;
    if (auto prepared =
            prepare("SELECT key, kind, value FROM defaults", "read the database", statement);
        !prepared)
        return prepared;
    sqlite3_stmt* const raw = statement.get();
    int step = SQLITE_ROW;
    while ((step = sqlite3_step(raw)) == SQLITE_ROW)
        if (auto stored = valueOf(raw))
            m_values.insert_or_assign(blob(raw, 0), *std::move(stored));
    if (step != SQLITE_DONE)
        return lastError("read the database");
    return {};
}

std::optional<UserDefaults::Value> SqliteUserDefaults::value(std::string_view key) const {
    const auto found = m_values.find(key);
    return found == m_values.end() ? std::nullopt : std::optional(found->second);
}

void SqliteUserDefaults::assign(std::string_view key, std::optional<Value> value) {
    if (!m_inTransaction && !m_leftOver.empty()) {
        if (const auto stored =
                transaction([&] { assign(key, std::move(value)); }, Durability::onDisk);
            !stored)
            m_onFailure(stored.error());
        return;
    }
    if (!m_inTransaction)
        prepareFor(Durability::onDisk);
    if (m_inTransaction)
        m_assigned.emplace(key);
    const auto stored =
        m_transactionFailure ? Result<void>(*m_transactionFailure) : store(key, value);
    if (value)
        m_values.insert_or_assign(std::string(key), *std::move(value));
    else if (const auto found = m_values.find(key); found != m_values.end())
        m_values.erase(found);
    if (stored)
        return;
    if (m_inTransaction) {
        m_transactionFailure = stored.error();
        return;
    }
    m_leftOver.emplace(key);
    m_onFailure(stored.error());
}

/// Stores earlier failed changes together with the new ones. Otherwise the new records could be
/// stored without them.
Result<void> SqliteUserDefaults::storeLeftOver() {
    for (const auto& key : m_leftOver)
        if (auto stored = store(key, value(key)); !stored)
            return stored;
    return m_records->storeLeftOver();
}

Result<void> SqliteUserDefaults::store(std::string_view key, const std::optional<Value>& value) {
    if (!m_database)
        return Error::fromErrno(EROFS, marked("write the database"), m_file);
    const char* const sql = value ? "INSERT OR REPLACE INTO defaults VALUES (?, ?, ?)"
                                  : "DELETE FROM defaults WHERE key = ?";
    Statement& statement = value ? m_insertion : m_removal;
    if (!statement)
        if (auto prepared = prepare(sql, marked("write the database"), statement); !prepared)
            return prepared;
    sqlite3_stmt* const raw = statement.get();
    const StatementReset reset(raw);
    sqlite3_bind_text64(raw, 1, key.data(), key.size(), SQLITE_STATIC, SQLITE_UTF8);
    if (value) {
        sqlite3_bind_text(raw, 2, kKinds[value->index()], -1, SQLITE_STATIC);
        bind(raw, 3, *value);
    }
    if (sqlite3_step(raw) != SQLITE_DONE)
        return lastError("write the database");
    return {};
}

/// Without a sync at each commit, a power cut loses the newest commits only.
void SqliteUserDefaults::prepareFor(Durability durability) {
    if (durability == m_durability)
        return;
    const char* const pragma =
        durability == Durability::onDisk ? "PRAGMA synchronous=FULL" : "PRAGMA synchronous=NORMAL";
    if (execute(pragma, marked("write the database")))
        m_durability = durability;
}

/// A checkpoint syncs both the log and the database.
Result<void> SqliteUserDefaults::makeDurable() {
    if (!m_database)
        return Error::fromErrno(EROFS, marked("write the database"), m_file);
    int frames = 0;
    int folded = 0;
    if (sqlite3_wal_checkpoint_v2(m_database.get(), "main", SQLITE_CHECKPOINT_PASSIVE, &frames,
                                  &folded) != SQLITE_OK)
        return lastError("write the database");
    return frames == folded
               ? Result<void>()
               : Error{{SQLITE_BUSY, sqliteCategory()}, marked("write the database"), m_file};
}

Result<void> SqliteUserDefaults::transaction(const std::function<void()>& body,
                                             Durability durability) {
    if (m_inTransaction) {
        body();
        return {};
    }
    prepareFor(durability);
    if (auto begun = execute("BEGIN IMMEDIATE", marked("write the database")); !begun)
        m_transactionFailure = std::move(begun).error();
    m_inTransaction = true;
    if (!m_transactionFailure)
        if (auto stored = storeLeftOver(); !stored)
            m_transactionFailure = std::move(stored).error();
    body();
    m_inTransaction = false;
    const auto failure = std::exchange(m_transactionFailure, std::nullopt);
    auto committed =
        failure ? Result<void>(*failure) : execute("COMMIT", marked("write the database"));
    if (!committed && m_database && sqlite3_get_autocommit(m_database.get()) == 0)
        sqlite3_exec(m_database.get(), "ROLLBACK", nullptr, nullptr, nullptr);
    if (committed)
        m_leftOver.clear();
    else
        m_leftOver.merge(m_assigned);
    m_assigned.clear();
    m_records->ended(committed.ok());
    if (!committed && isFull(committed.error()) && releaseReserve(m_file))
        return transaction([] {}, durability); // stores earlier failed changes
    return committed;
}

Result<void> SqliteUserDefaults::execute(const char* statement, const char* operation) {
    if (!m_database)
        return Error::fromErrno(EROFS, operation, m_file);
    if (sqlite3_exec(m_database.get(), statement, nullptr, nullptr, nullptr) != SQLITE_OK)
        return lastError(operation);
    return {};
}

Error SqliteUserDefaults::lastError(const char* operation) const {
    const int code = m_database ? sqlite3_extended_errcode(m_database.get()) : SQLITE_NOMEM;
    return {std::error_code(code, sqliteCategory()), operation, m_file};
}

} // namespace vexmoor
