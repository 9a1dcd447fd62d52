#include "Columns.h"

#include "base/ByteCount.h"
#include "base/Text.h"

#include <algorithm>

namespace vexmoor {
namespace {

std::size_t blanks(const std::string& cell, std::size_t width) {
    return width - std::min(width, characters(cell));
}

} // namespace

std::size_t characters(const std::string& cell) {
    return static_cast<std::size_t>(
        std::ranges::count_if(cell, [](char c) { return (c & 0xc0) != 0x80; }));
}

std::string sizeText(std::int64_t bytes) {
    return bytes == 0 ? text("%1 KB", {"0"}) : byteCountText(bytes);
}

std::string leftAligned(std::string cell, std::size_t width) {
    return cell.append(blanks(cell, width), ' ');
}

std::string rightAligned(std::string cell, std::size_t width) {
    return cell.insert(0, blanks(cell, width), ' ');
}

} // namespace vexmoor
