#pragma once

#include "skins/Pixel.h"

#include <ostream>

namespace vexmoor {

inline void PrintTo(const Pixel& pixel, std::ostream* out) {
    *out << '(' << +pixel.r << ' ' << +pixel.g << ' ' << +pixel.b << ' ' << +pixel.a << ')';
}

} // namespace vexmoor
