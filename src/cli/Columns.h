#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

// Formatting of terminal tables. A width counts characters, not bytes.

namespace vexmoor {

/// Returns the number of characters in a UTF-8 text.
std::size_t characters(const std::string& cell);

/// Formats a size for a right-aligned column. Zero is "0 KB", so that digits stay below digits.
std::string sizeText(std::int64_t bytes);

std::string leftAligned(std::string cell, std::size_t width);
std::string rightAligned(std::string cell, std::size_t width);

} // namespace vexmoor
