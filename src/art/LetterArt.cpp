#include "LetterArt.h"

namespace vexmoor {

void drawLetters(PixelCanvas& canvas, LetterRows rows, const Palette& palette, int left, int top) {
    int y = top;
    for (const std::string_view row : rows) {
        int x = left;
        for (const char letter : row) {
            if (const Pixel* colour = palette.find(letter))
                canvas.blend(x, y, *colour);
            ++x;
        }
        ++y;
    }
}

} // namespace vexmoor
