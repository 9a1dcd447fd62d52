#include "Printable.h"

#include "base/Path.h"

#include <cstdio>

namespace vexmoor {

namespace {

bool continuesCharacter(char c) {
    return (static_cast<unsigned char>(c) & 0xC0) == 0x80;
}

char32_t decoded(std::string_view character) {
    const auto at = [&](std::size_t i) {
        return static_cast<char32_t>(static_cast<unsigned char>(character[i]));
    };
    switch (character.size()) {
    case 1:
        return at(0);
    case 2:
        return (at(0) & 0x1F) << 6 | (at(1) & 0x3F);
    case 3:
        return (at(0) & 0x0F) << 12 | (at(1) & 0x3F) << 6 | (at(2) & 0x3F);
    default:
        return 0xFFFF; // no listed sequence is longer
    }
}

bool isUnsafe(char32_t c) {
    const bool isControl = c < 0x20 || (c >= 0x7F && c <= 0x9F);
    const bool isBidirectional = c == 0x061C || c == 0x200E || c == 0x200F ||
                                 (c >= 0x202A && c <= 0x202E) || (c >= 0x2066 && c <= 0x2069);
    return isControl || isBidirectional || c == 0x2028 || c == 0x2029;
}

} // namespace

std::string printable(std::string_view text) {
    const std::string valid = displayText(text);
    std::string result;
    for (std::size_t start = 0, end = 0; start < valid.size(); start = end) {
        for (end = start + 1; end < valid.size() && continuesCharacter(valid[end]);)
            ++end;
        const auto character = std::string_view(valid).substr(start, end - start);
        if (!isUnsafe(decoded(character))) {
            result += character;
        } else if (character == "\n") {
            result += "\\n";
        } else {
            for (const char c : character) {
                char escaped[8];
                std::snprintf(escaped, sizeof escaped, "\\x%02x", static_cast<unsigned char>(c));
                result += escaped;
            }
        }
    }
    return result;
}

} // namespace vexmoor
