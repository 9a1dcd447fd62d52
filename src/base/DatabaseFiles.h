#pragma once

#include "base/Result.h"

#include <filesystem>

// The files of an SQLite database.

namespace vexmoor {

/// Creates the folder with access for the user only: its contents show what the user deleted.
Result<void> makePrivateFolder(const std::filesystem::path& folder);

/// True if the write-ahead log may contain changes that are not in the database.
bool hasLog(const std::filesystem::path& file);

/// True if the database is missing or empty but its write-ahead log has content. SQLite would treat
/// the database as new and delete the log, although it never creates a log before the database's
/// first page.
bool hasLostItsPages(const std::filesystem::path& file);

/// True if the path is not a regular file: reading it could block or never end.
bool isNoFile(const std::filesystem::path& file);

/// Renames the database and SQLite's files beside it, using the first free number. The caller holds
/// the writer's lock, so that no other program takes the name.
Result<std::filesystem::path> moveAside(const std::filesystem::path& file);

/// Reserves disk space for the log, so that changes that free space can be stored on a full disk.
void keepReserve(const std::filesystem::path& file);

/// Releases that space. Returns false if there is none.
bool releaseReserve(const std::filesystem::path& file);

} // namespace vexmoor
