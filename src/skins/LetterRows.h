#pragma once

#include <algorithm>
#include <cstddef>
#include <span>
#include <string_view>

namespace vexmoor {

/// A picture as text: one string a pixel row, one letter a pixel. A letter that the palette does
/// not know (by convention the dot) is transparent.
using LetterRows = std::span<const std::string_view>;

/// Whether a picture has exactly that size; for static assertions beside the pictures.
constexpr bool isSized(LetterRows rows, std::size_t width, std::size_t height) {
    return rows.size() == height &&
           std::ranges::all_of(rows, [width](std::string_view row) { return row.size() == width; });
}

} // namespace vexmoor
