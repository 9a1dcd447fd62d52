#pragma once

#include "base/Result.h"

#include <filesystem>

// What lies on the disk of a SQLite database, beside its file.

namespace vexmoor {

/// Makes the folder. It shows what the user has deleted, which is nobody else's business.
Result<void> makePrivateFolder(const std::filesystem::path& folder);

/// Whether something may stand in the log that does not stand in the database.
bool hasLog(const std::filesystem::path& file);

/// Whether the database is gone or empty while its log holds something. SQLite would take it as new
/// and delete the log, though it makes one only after the first page of the database.
bool hasLostItsPages(const std::filesystem::path& file);

/// Whether something else than a file is in its place, which a read may wait for or never end on.
bool isNoFile(const std::filesystem::path& file);

/// Renames the database and what SQLite keeps beside it; the first free number is taken. The caller
/// holds the writer's lock, so nobody else takes the name in between.
Result<std::filesystem::path> moveAside(const std::filesystem::path& file);

/// Keeps room on the disk for the log, so that what frees room can be stored on a full one.
void keepReserve(const std::filesystem::path& file);

/// Releases that room; returns false if there is none.
bool releaseReserve(const std::filesystem::path& file);

} // namespace vexmoor
