#include "SqliteRecordTable.h"

#include <sqlite3.h>

#include <utility>

namespace vexmoor {

namespace {

constexpr const char* kWrite = "write the database";
constexpr const char* kRead = "read the database";
constexpr const char* kCountKey = "records.count";

std::string bytes(sqlite3_stmt* row, int column) {
    const auto size = static_cast<std::size_t>(sqlite3_column_bytes(row, column));
    const auto* const data = static_cast<const char*>(sqlite3_column_blob(row, column));
    return data == nullptr ? std::string() : std::string(data, size);
}

void bind(sqlite3_stmt* statement, int index, const std::string& value) {
    sqlite3_bind_blob64(statement, index, value.data(), value.size(), SQLITE_STATIC);
}

} // namespace

void SqliteRecordTable::append(Record record) {
    make(std::move(record));
}

void SqliteRecordTable::remove(std::set<std::string> ids) {
    if (!ids.empty())
        make(std::move(ids));
}

void SqliteRecordTable::trim(std::int64_t most) {
    make(Trim{most});
}

void SqliteRecordTable::make(Change change) {
    if (!m_store.m_inTransaction) {
        const auto stored =
            m_store.transaction([&] { make(std::move(change)); }, UserDefaults::Durability::onDisk);
        if (!stored)
            m_store.m_onFailure(stored.error());
        return;
    }
    if (!m_store.m_transactionFailure)
        if (auto made = execute(change); !made)
            m_store.m_transactionFailure = std::move(made).error();
    m_changes.push_back(std::move(change));
}

Result<void> SqliteRecordTable::storeLeftOver() {
    m_added = 0;
    for (const auto& change : m_changes)
        if (auto made = execute(change); !made)
            return made;
    return {};
}

void SqliteRecordTable::ended(bool isCommitted) {
    if (isCommitted)
        m_changes.clear();
    else if (!m_changes.empty())
        m_isCountKnown = false;
    m_added = 0;
}

Result<void> SqliteRecordTable::execute(const Change& change) {
    if (!m_store.m_connection.isOpen())
        return m_store.m_connection.notOpen(kWrite);
    if (const auto* const record = std::get_if<Record>(&change))
        return insert(*record);
    if (const auto* const ids = std::get_if<Ids>(&change))
        return erase(*ids);
    return eraseOldest(std::get<Trim>(change).most);
}

Result<void> SqliteRecordTable::insert(const Record& record) {
    if (!m_insertion)
        if (auto prepared =
                m_store.m_connection.prepare("INSERT INTO records (batch, id, name, content) "
                                             "VALUES (?, ?, ?, ?)",
                                             kWrite, m_insertion);
            !prepared)
            return prepared;
    sqlite3_stmt* const raw = m_insertion.get();
    sqlite3_bind_int64(raw, 1, record.group);
    bind(raw, 2, record.id);
    bind(raw, 3, record.name);
    bind(raw, 4, record.content);
    const int step = sqlite3_step(raw);
    sqlite3_reset(raw);
    sqlite3_clear_bindings(raw);
    if (step != SQLITE_DONE)
        return m_store.m_connection.lastError(kWrite);
    ++m_added;
    return {};
}

/// Scans from the newest record, since mostly the newest are removed. An index on the id would cost
/// more than storing the rest of the record.
Result<std::vector<std::int64_t>> SqliteRecordTable::keysOf(Ids ids) const {
    SqliteConnection::Statement statement;
    if (auto prepared = m_store.m_connection.prepare(
            "SELECT key, id FROM records ORDER BY key DESC", kRead, statement);
        !prepared)
        return std::move(prepared).error();
    std::vector<std::int64_t> keys;
    int step = SQLITE_ROW;
    while (!ids.empty() && (step = sqlite3_step(statement.get())) == SQLITE_ROW)
        if (ids.erase(bytes(statement.get(), 1)) > 0)
            keys.push_back(sqlite3_column_int64(statement.get(), 0));
    if (step != SQLITE_ROW && step != SQLITE_DONE)
        return m_store.m_connection.lastError(kRead);
    return keys;
}

Result<void> SqliteRecordTable::erase(const Ids& ids) {
    const auto keys = keysOf(ids);
    if (!keys)
        return keys.error();
    SqliteConnection::Statement statement;
    if (auto prepared =
            m_store.m_connection.prepare("DELETE FROM records WHERE key = ?", kWrite, statement);
        !prepared)
        return prepared;
    for (const auto key : *keys) {
        sqlite3_bind_int64(statement.get(), 1, key);
        const int step = sqlite3_step(statement.get());
        sqlite3_reset(statement.get());
        if (step != SQLITE_DONE)
            return m_store.m_connection.lastError(kWrite);
        --m_added;
    }
    return {};
}

/// Keeps the count in the database, because count(*) scans the whole table.
Result<std::int64_t> SqliteRecordTable::count() {
    const auto stored = m_store.integer(kCountKey);
    if (m_isCountKnown && stored)
        return *stored + std::exchange(m_added, 0);
    SqliteConnection::Statement statement;
    if (auto prepared =
            m_store.m_connection.prepare("SELECT count(*) FROM records", kRead, statement);
        !prepared)
        return std::move(prepared).error();
    if (sqlite3_step(statement.get()) != SQLITE_ROW)
        return m_store.m_connection.lastError(kRead);
    m_added = 0;
    m_isCountKnown = true;
    return std::int64_t{sqlite3_column_int64(statement.get(), 0)};
}

Result<void> SqliteRecordTable::eraseOldest(std::int64_t most) {
    auto stored = count();
    if (!stored)
        return std::move(stored).error();
    if (*stored > most) {
        SqliteConnection::Statement statement;
        if (auto prepared =
                m_store.m_connection.prepare("DELETE FROM records WHERE key IN "
                                             "(SELECT key FROM records ORDER BY key LIMIT ?)",
                                             kWrite, statement);
            !prepared)
            return prepared;
        sqlite3_bind_int64(statement.get(), 1, *stored - most);
        if (sqlite3_step(statement.get()) != SQLITE_DONE)
            return m_store.m_connection.lastError(kWrite);
        *stored = most;
    }
    m_store.assign(kCountKey, *stored);
    return {};
}

/// Visits the changes that are not stored yet first; they are newer than the stored records.
Result<void> SqliteRecordTable::visit(const Visitor& visitor) const {
    Ids removed;
    for (auto change = m_changes.rbegin(); change != m_changes.rend(); ++change) {
        if (const auto* const ids = std::get_if<Ids>(&*change))
            removed.insert(ids->begin(), ids->end());
        else if (const auto* const record = std::get_if<Record>(&*change);
                 record != nullptr && !removed.contains(record->id) && !visitor(*record))
            return {};
    }
    if (!m_store.m_connection.isOpen() || !m_store.m_hasRecords)
        return {};
    SqliteConnection::Statement statement;
    if (auto prepared = m_store.m_connection.prepare(
            "SELECT batch, id, name, content FROM records ORDER BY key DESC", kRead, statement);
        !prepared)
        return prepared;
    int step = SQLITE_ROW;
    while ((step = sqlite3_step(statement.get())) == SQLITE_ROW) {
        sqlite3_stmt* const row = statement.get();
        const Record record{sqlite3_column_int64(row, 0), bytes(row, 1), bytes(row, 2),
                            bytes(row, 3)};
        if (!removed.contains(record.id) && !visitor(record))
            return {};
    }
    return step == SQLITE_DONE ? Result<void>() : m_store.m_connection.lastError(kRead);
}

} // namespace vexmoor
