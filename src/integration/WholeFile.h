#pragma once

#include "base/Path.h"
#include "base/Result.h"

#include <sys/types.h>

#include <cstddef>
#include <string>
#include <string_view>

namespace vexmoor {

/// No configuration file that we share is longer.
inline constexpr std::size_t kLongestSharedFile = 4U << 20U;

/// Fails with `invalid_argument` for anything but a regular file (links are followed), and with
/// `file_too_large` for one that is longer than `limit`. Never waits for a writer.
Result<std::string> readWholeFile(const Path& file, std::size_t limit = kLongestSharedFile);

/// Writes the file beside its place and moves it there, so that at any time the old or the new one
/// lies there whole. Links are followed. A file that is replaced hands on its permissions; a new
/// one gets `mode` less the umask, and a program is made one.
Result<void> replaceWholeFile(const Path& file, std::string_view bytes, mode_t mode);

} // namespace vexmoor
