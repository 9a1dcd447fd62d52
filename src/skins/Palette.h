#pragma once

#include "Pixel.h"

#include <array>
#include <cstddef>

namespace vexmoor {

/// What colour a letter stands for. Letters are ASCII; one without a colour is transparent.
class Palette {
  public:
    struct Entry {
        char letter;
        Pixel colour;
    };

    /// The letter's colour, or null.
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
