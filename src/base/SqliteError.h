#pragma once

#include "base/Result.h"

#include <optional>
#include <string_view>
#include <system_error>

namespace vexmoor {

/// The codes of SQLite's errors.
const std::error_category& sqliteCategory();

/// The code of that name among the category's, if it has a sentence of its own.
std::optional<std::error_code> databaseCodeNamed(std::string_view name);

/// Whether what lies there is no database, or not a whole one.
bool isCorrupt(const Error& error);

/// Whether nothing can be made beside a database that is only read.
bool isUnopenable(const Error& error);

/// Whether there is no room left on the disk.
bool isDiskFull(const Error& error);

} // namespace vexmoor
