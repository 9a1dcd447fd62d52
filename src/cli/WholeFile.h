#pragma once

#include "base/Path.h"
#include "base/Result.h"

#include <sys/types.h>

#include <string>
#include <string_view>

namespace vexmoor {

Result<std::string> readWholeFile(const Path& file);

/// Writes the file beside its place and moves it there, so that at any time the old or the new one
/// lies there whole. Links are followed. A file that is replaced hands on its permissions; a new
/// one gets `mode` less the umask, and a program is made one.
Result<void> replaceWholeFile(const Path& file, std::string_view bytes, mode_t mode);

} // namespace vexmoor
