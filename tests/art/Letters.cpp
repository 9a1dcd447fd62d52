#include "Letters.h"

#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string_view>

namespace vexmoor {
namespace {

char letterOf(Pixel pixel, const Palette& palette, const Skin& skin) {
    constexpr std::string_view kLetters = "KDBHWGgLSXxVPTtUMNnYyRr";
    if (pixel == Pixel{})
        return '.';
    if (pixel == skin.spark)
        return '*';
    for (const char letter : kLetters) {
        const Pixel* colour = palette.find(letter);
        if (colour != nullptr && *colour == pixel)
            return letter;
    }
    return pixel.a == 255 ? '?' : '%';
}

} // namespace

std::string lettersOf(const PixelCanvas& canvas, const Skin& skin) {
    const Palette palette = skin.palette();
    std::string rows;
    for (int y = 0; y < canvas.height(); ++y) {
        for (int x = 0; x < canvas.width(); ++x)
            rows += letterOf(canvas.at(x, y), palette, skin);
        rows += '\n';
    }
    return rows;
}

std::string goldenRows(const std::string& name, const std::string& actual) {
    const std::string path = std::string(VEXMOOR_GOLDEN_DIRECTORY) + '/' + name + ".txt";
    if (std::getenv("VEXMOOR_UPDATE_GOLDEN") != nullptr)
        std::ofstream(path) << actual;
    std::ostringstream rows;
    rows << std::ifstream(path).rdbuf();
    return rows.str();
}

} // namespace vexmoor
