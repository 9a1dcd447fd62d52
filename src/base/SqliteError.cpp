#include "SqliteError.h"

#include "base/Text.h"

#include <sqlite3.h>

namespace vexmoor {

namespace {

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

/// Returns SQLite's primary result code, or nullopt for another category.
std::optional<int> primaryCode(const Error& error) {
    return error.code.category() == sqliteCategory() ? std::optional(error.code.value() & 0xff)
                                                     : std::nullopt;
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

/// A database of our version without our table makes SQLite return SQLITE_ERROR.
bool isCorrupt(const Error& error) {
    const auto code = primaryCode(error);
    return code == SQLITE_CORRUPT || code == SQLITE_NOTADB || code == SQLITE_ERROR;
}

bool isUnopenable(const Error& error) {
    const auto code = primaryCode(error);
    return code == SQLITE_CANTOPEN || code == SQLITE_READONLY;
}

bool isDiskFull(const Error& error) {
    return primaryCode(error) == SQLITE_FULL;
}

} // namespace vexmoor
