#pragma once

#include <cstdint>
#include <string>

namespace vexmoor {

/// A size as file lists show it, in decimal units: "Zero KB", "512 bytes", "88 KB", "2.1 MB",
/// "38.62 GB".
std::string byteCountText(std::int64_t bytes);

/// A number with its thousands set apart: "10,000".
std::string countText(std::int64_t count);

} // namespace vexmoor
