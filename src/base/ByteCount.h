#pragma once

#include <cstdint>
#include <string>

namespace vexmoor {

/// Formats a size in decimal units as file lists do: "Zero KB", "512 bytes", "88 KB", "2.1 MB",
/// "38.62 GB".
std::string byteCountText(std::int64_t bytes);

/// Formats a number with thousands separators: "10,000".
std::string countText(std::int64_t count);

} // namespace vexmoor
