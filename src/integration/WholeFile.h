#pragma once

#include "base/Path.h"
#include "base/Result.h"

#include <sys/types.h>

#include <cstddef>
#include <string>
#include <string_view>

namespace vexmoor {

/// The maximum size of a shared configuration file.
inline constexpr std::size_t kLongestSharedFile = 4U << 20U;

/// Reads a regular file; follows links and never blocks. Fails with `invalid_argument` for any
/// other kind of file, and with `file_too_large` if it is longer than `limit`.
Result<std::string> readWholeFile(const Path& file, std::size_t limit = kLongestSharedFile);

/// Writes a temporary file beside the target and renames it over the target, so that the target is
/// always complete. Follows links. Keeps the permissions of a replaced file; a new file gets `mode`
/// minus the umask.
Result<void> replaceWholeFile(const Path& file, std::string_view bytes, mode_t mode);

} // namespace vexmoor
