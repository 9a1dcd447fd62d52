#include "AppIcon.h"

#include "art/CauldronArt.h"
#include "art/LetterArt.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <string>

namespace vexmoor::arttool {
namespace {

// The pot drawn for sizes that the standard drawing does not fit, in the skins' letters.
constexpr std::array<std::string_view, 16> kSmallRows{
    "................", //
    "....KKKKKKKK....", //
    "..KKHHHHHHHHKK..", //
    ".KHDgGGGGGGgDHK.", //
    ".KHgGLLGGGGGgHK.", //
    ".KHDggGGGGggDHK.", //
    ".KBBHHHHHHHHBBK.", //
    "KDDDDDDDDDDDDDDK", //
    "KBBWBBBBBBBBBBDK", //
    "KBWWBBBBBBBBBBDK", //
    "KBBHBBBBBBBBBDDK", //
    "KDBBBBBBBBBBBDDK", //
    ".KDBBBBBBBBDDDK.", //
    "..KDDDDDDDDDDK..", //
    "...KKKKKKKKKK...", //
    "..KDK......KDK..", //
};
constexpr std::array<std::string_view, 24> kMediumRows{
    "........................", //
    ".......KKKKKKKKKK.......", //
    ".....KKHHHHHHHHHHKK.....", //
    "....KHHDDDDDDDDDDHHK....", //
    "...KHHDgGGGGGGGGgDHHK...", //
    "...KHDgGGLLGGGGGGgDHK...", //
    "...KHDgGGGGGGGGGGgDHK...", //
    "...KHDDggGGGGGGggDDHK...", //
    "...KBHHDDggggggDDHHBK...", //
    "...KBBBHHHHHHHHHHBBBK...", //
    "..KDBBBBBBBBBBBBBBBBDK..", //
    ".KDDDDDDDDDDDDDDDDDDDDK.", //
    ".KDBBWWBBBBBBBBBBBBBBDK.", //
    ".KDBWWWBBBBBBBBBBBBBBDK.", //
    ".KDBBBHBBBBBBBBBBBBBDDK.", //
    ".KDBBBBBBBBBBBBBBBBDDDK.", //
    ".KDDBBBBBBBBBBBBBBDDDDK.", //
    "..KDDBBBBBBBBBBBDDDDDK..", //
    "...KDDDDDDDDDDDDDDDDK...", //
    "....KKDDDDDDDDDDDDKK....", //
    "......KKKKKKKKKKKK......", //
    ".....KDDK......KDDK.....", //
    "....SKKKKSSSSSSKKKKS....", //
    "........................", //
};
constexpr int kLargeSide = 32;
constexpr int kEdge = 2;

/// Returns the standard pot cropped to a square.
PixelCanvas largeDrawing() {
    return CauldronArt::idle(0, true, 0, Skin::iron())
        .crop((CauldronArt::kWidth - kLargeSide) / 2, CauldronArt::kHeight - kLargeSide, kLargeSide,
              kLargeSide);
}

PixelCanvas drawing(LetterRows rows) {
    PixelCanvas canvas(static_cast<int>(rows.front().size()), static_cast<int>(rows.size()));
    drawLetters(canvas, rows, Skin::iron().palette(), 0, 0);
    return canvas;
}

/// Returns the drawing that fills the size best. A drawing may be slightly larger than the size,
/// because its transparent margin can be cropped.
PixelCanvas drawingFor(int side) {
    if (side % kLargeSide == 0)
        return largeDrawing();
    const bool isMedium = (side + kEdge) / 24 > 0 && (side + kEdge) % 24 <= kEdge;
    return isMedium ? drawing(kMediumRows) : drawing(kSmallRows);
}

std::string attribute(Pixel pixel) {
    char text[64];
    std::snprintf(text, sizeof text, "fill=\"#%02x%02x%02x\"", pixel.r, pixel.g, pixel.b);
    std::string result = text;
    if (pixel.a != 255) {
        std::snprintf(text, sizeof text, " fill-opacity=\"0.%03d\"", pixel.a * 1000 / 255);
        result += text;
    }
    return result;
}

} // namespace

PixelCanvas appIcon(int side) {
    const PixelCanvas art = drawingFor(side);
    const int scale = std::max(1, (side + kEdge) / art.width());
    const int margin = (side - art.width() * scale) / 2;
    PixelCanvas icon(side, side);
    for (int y = 0; y < art.height() * scale; ++y)
        for (int x = 0; x < art.width() * scale; ++x)
            icon.set(x + margin, y + margin, art.at(x / scale, y / scale));
    return icon;
}

QByteArray appIconSvg() {
    const PixelCanvas art = largeDrawing();
    std::string svg = "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"128\" height=\"128\" "
                      "viewBox=\"0 0 32 32\" shape-rendering=\"crispEdges\">\n";
    for (int y = 0; y < art.height(); ++y)
        for (int x = 0, end = 0; x < art.width(); x = end) {
            for (end = x + 1; end < art.width() && art.at(end, y) == art.at(x, y);)
                ++end;
            if (art.at(x, y).a != 0)
                svg += "<rect x=\"" + std::to_string(x) + "\" y=\"" + std::to_string(y) +
                       "\" width=\"" + std::to_string(end - x) + "\" height=\"1\" " +
                       attribute(art.at(x, y)) + "/>\n";
        }
    return QByteArray::fromStdString(svg + "</svg>\n");
}

} // namespace vexmoor::arttool
