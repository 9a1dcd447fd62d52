#pragma once

#include "base/Result.h"

#include <optional>
#include <string_view>
#include <system_error>

namespace vexmoor {

/// The error category of SQLite's result codes.
const std::error_category& sqliteCategory();

/// Returns the code with that name, or nullopt if the category has no message for it.
std::optional<std::error_code> databaseCodeNamed(std::string_view name);

/// True if the file is not an SQLite database, or a damaged one.
bool isCorrupt(const Error& error);

/// True if SQLite cannot create its files beside a database that is opened read-only.
bool isUnopenable(const Error& error);

/// True if the disk is full.
bool isDiskFull(const Error& error);

} // namespace vexmoor
