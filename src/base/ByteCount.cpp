#include "ByteCount.h"

#include "Text.h"
#include "UserLocale.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <climits>
#include <cmath>

namespace vexmoor {
namespace {

/// Inserts the locale's separator between the groups of digits.
std::string grouped(std::string digits, const NumberStyle& style) {
    const std::size_t first = digits.starts_with('-') ? 1 : 0;
    std::size_t end = digits.size();
    for (std::size_t group = 0; !style.groups.empty(); ++group) {
        const char size = style.groups[std::min(group, style.groups.size() - 1)];
        if (size <= 0 || size == CHAR_MAX || end <= first + static_cast<std::size_t>(size))
            break;
        end -= static_cast<std::size_t>(size);
        digits.insert(end, style.separator);
    }
    return digits;
}

/// Formats `value` with at most `decimals` decimals, without trailing zeros.
std::string numberText(double value, int decimals) {
    std::array<char, 48> digits{};
    auto* const end = std::to_chars(digits.data(), digits.data() + digits.size(), value,
                                    std::chars_format::fixed, decimals)
                          .ptr;
    const std::string number(digits.data(), end);
    const auto style = numberStyle();
    const auto point = number.find('.');
    if (point == std::string::npos)
        return grouped(number, style);
    const auto last = number.find_last_not_of('0');
    const auto whole = grouped(number.substr(0, point), style);
    return last == point ? whole : whole + style.decimal + number.substr(point + 1, last - point);
}

} // namespace

std::string byteCountText(std::int64_t bytes) {
    if (bytes == 0)
        return text("Zero KB");
    if (std::abs(bytes) < 1000)
        return plural("%1 byte", "%1 bytes", bytes);
    struct Unit {
        const char* pattern;
        int decimals;
    };
    constexpr std::array<Unit, 6> kUnits = {{{marked("%1 KB"), 0},
                                             {marked("%1 MB"), 1},
                                             {marked("%1 GB"), 2},
                                             {marked("%1 TB"), 2},
                                             {marked("%1 PB"), 2},
                                             {marked("%1 EB"), 2}}};
    double value = static_cast<double>(bytes) / 1000;
    std::size_t unit = 0;
    const auto rounded = [&] {
        const double scale = std::pow(10, kUnits[unit].decimals);
        return std::round(value * scale) / scale;
    };
    while (std::abs(rounded()) >= 1000 && unit + 1 < kUnits.size()) {
        value /= 1000;
        ++unit;
    }
    return text(kUnits[unit].pattern, {numberText(rounded(), kUnits[unit].decimals)});
}

std::string countText(std::int64_t count) {
    return grouped(std::to_string(count), numberStyle());
}

} // namespace vexmoor
