#include "SqliteUserDefaults.h"

#include "base/DatabaseFiles.h"
#include "base/SqliteError.h"
#include "base/SqliteRecordTable.h"
#include "base/Text.h"

#include <sqlite3.h>

#include <utility>

namespace vexmoor {

namespace {

constexpr const char* kOpen = marked("open the database");
constexpr const char* kRead = marked("read the database");
constexpr const char* kWrite = marked("write the database");
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

} // namespace

SqliteUserDefaults::SqliteUserDefaults(std::filesystem::path file, FailureHandler onFailure)
    : m_connection(std::move(file)), m_onFailure(std::move(onFailure)),
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
        store->m_connection.close();
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
    const auto& file = m_connection.file();
    std::error_code code;
    if (hasLostItsPages(file) || isNoFile(file))
        return Error{{SQLITE_CORRUPT, sqliteCategory()}, kOpen, file};
    if (access == Access::readOnly && !std::filesystem::exists(file, code))
        return code ? Result<void>(Error{code, kOpen, file}) : Result<void>();
    if (auto opened = m_connection.open(access, m_immutable); !opened)
        return opened;
    const auto version = m_connection.userVersion();
    if (!version)
        return version.error();
    if (*version > kFormatVersion)
        return Error{{SQLITE_MISMATCH, sqliteCategory()}, kOpen, file};
    if (access == Access::readWrite) {
        if (auto made = m_connection.execute(*version < kFormatVersion ? kCreate : kPrepare, kOpen);
            !made)
            return made;
        keepReserve(file);
    }
    m_hasRecords = access == Access::readWrite || *version == kFormatVersion;
    return *version == 0 ? Result<void>() : load();
}

Result<void> SqliteUserDefaults::load() {
    SqliteConnection::Statement statement;
    if (auto prepared =
            m_connection.prepare("SELECT key, kind, value FROM defaults", kRead, statement);
        !prepared)
        return prepared;
    sqlite3_stmt* const raw = statement.get();
    int step = SQLITE_ROW;
    while ((step = sqlite3_step(raw)) == SQLITE_ROW)
        if (auto stored = valueOf(raw))
            m_values.insert_or_assign(blob(raw, 0), *std::move(stored));
    if (step != SQLITE_DONE)
        return m_connection.lastError(kRead);
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
        m_connection.prepareFor(Durability::onDisk);
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
    if (!m_connection.isOpen())
        return m_connection.notOpen(kWrite);
    const char* const sql = value ? "INSERT OR REPLACE INTO defaults VALUES (?, ?, ?)"
                                  : "DELETE FROM defaults WHERE key = ?";
    auto& statement = value ? m_insertion : m_removal;
    if (!statement)
        if (auto prepared = m_connection.prepare(sql, kWrite, statement); !prepared)
            return prepared;
    sqlite3_stmt* const raw = statement.get();
    const StatementReset reset(raw);
    sqlite3_bind_text64(raw, 1, key.data(), key.size(), SQLITE_STATIC, SQLITE_UTF8);
    if (value) {
        sqlite3_bind_text(raw, 2, kKinds[value->index()], -1, SQLITE_STATIC);
        bind(raw, 3, *value);
    }
    if (sqlite3_step(raw) != SQLITE_DONE)
        return m_connection.lastError(kWrite);
    return {};
}

Result<void> SqliteUserDefaults::makeDurable() {
    return m_connection.foldLog();
}

Result<void> SqliteUserDefaults::transaction(const std::function<void()>& body,
                                             Durability durability) {
    if (m_inTransaction) {
        body();
        return {};
    }
    m_connection.prepareFor(durability);
    if (auto begun = m_connection.execute("BEGIN IMMEDIATE", kWrite); !begun)
        m_transactionFailure = std::move(begun).error();
    m_inTransaction = true;
    if (!m_transactionFailure)
        if (auto stored = storeLeftOver(); !stored)
            m_transactionFailure = std::move(stored).error();
    body();
    m_inTransaction = false;
    const auto failure = std::exchange(m_transactionFailure, std::nullopt);
    auto committed = failure ? Result<void>(*failure) : m_connection.execute("COMMIT", kWrite);
    if (!committed)
        m_connection.rollBack();
    if (committed)
        m_leftOver.clear();
    else
        m_leftOver.merge(m_assigned);
    m_assigned.clear();
    m_records->ended(committed.ok());
    if (!committed && isDiskFull(committed.error()) && releaseReserve(m_connection.file()))
        return transaction([] {}, durability); // stores earlier failed changes
    return committed;
}

} // namespace vexmoor
