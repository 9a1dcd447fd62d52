#pragma once

#include <cstddef>
#include <string>

// Columns of a table on the terminal. A width counts characters, not bytes.

namespace vexmoor {

/// How many a text of UTF-8 has.
std::size_t characters(const std::string& cell);

std::string leftAligned(std::string cell, std::size_t width);
std::string rightAligned(std::string cell, std::size_t width);

} // namespace vexmoor
