#pragma once

#include <algorithm>
#include <cstddef>
#include <span>
#include <string_view>

namespace vexmoor {

/// A picture as text: one string per pixel row, one letter per pixel. A letter that is not in the
/// palette (by convention the dot) is transparent.
using LetterRows = std::span<const std::string_view>;

/// True if a picture has exactly that size. Used in static assertions.
constexpr bool isSized(LetterRows rows, std::size_t width, std::size_t height) {
    return rows.size() == height &&
           std::ranges::all_of(rows, [width](std::string_view row) { return row.size() == width; });
}

} // namespace vexmoor
