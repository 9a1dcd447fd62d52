#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

// Columns of a table on the terminal. A width counts characters, not bytes.

namespace vexmoor {

/// How many a text of UTF-8 has.
std::size_t characters(const std::string& cell);

/// A size; "0 KB" where there is nothing, since digits stand below digits.
std::string sizeText(std::int64_t bytes);

std::string leftAligned(std::string cell, std::size_t width);
std::string rightAligned(std::string cell, std::size_t width);

} // namespace vexmoor
