#pragma once

#include <string>
#include <string_view>
#include <utility>

namespace vexmoor {

/// Splits a file name into stem and extension (pathExtension), without the dot.
std::pair<std::string_view, std::string_view> splitExtension(std::string_view name);

/// Returns the name to use if `name` is taken when putting back: "report 2.pdf", truncated like
/// storedName() to 255 bytes.
std::string numberedName(std::string_view name, unsigned number);

/// Returns the name to store in the Bin: `name` for number 1, otherwise with the number before the
/// extension ("report.2.pdf"). At most 245 bytes, so that the info file's name fits; longer names
/// lose the end of the stem, at a character boundary if they are UTF-8.
std::string storedName(std::string_view name, unsigned number);

} // namespace vexmoor
