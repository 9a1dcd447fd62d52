#pragma once

#include "Pixel.h"

#include <array>
#include <cstddef>

namespace vexmoor {

/// Maps ASCII letters to colours. A letter without a colour is transparent.
class Palette {
  public:
    struct Entry {
        char letter;
        Pixel colour;
    };

    /// Returns the letter's colour, or null.
    [[nodiscard]] constexpr const Pixel* find(char letter) const {
        const Pixel& colour = m_colours[index(letter)];
        return colour.a == 0 ? nullptr : &colour;
    }

    constexpr void set(char letter, Pixel colour) { m_colours[index(letter)] = colour; }

  private:
    static constexpr std::size_t index(char letter) {
        return static_cast<unsigned char>(letter) % 128U;
    }

    std::array<Pixel, 128> m_colours{};
};

} // namespace vexmoor
