#include "ByteCount.h"

#include <array>
#include <cmath>
#include <cstdio>

namespace vexmoor {

std::string byteCountText(std::int64_t bytes) {
    if (bytes == 0)
        return "Zero KB";
    if (bytes == 1)
        return "1 byte";
    if (std::abs(bytes) < 1000)
        return std::to_string(bytes) + " bytes";
    struct Unit {
        const char* name;
        int decimals;
    };
    constexpr std::array<Unit, 6> kUnits = {
        {{"KB", 0}, {"MB", 1}, {"GB", 2}, {"TB", 2}, {"PB", 2}, {"EB", 2}}};
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
    char text[48];
    std::snprintf(text, sizeof text, "%.*f", kUnits[unit].decimals, rounded());
    std::string number = text;
    if (number.find('.') != std::string::npos) {
        number.erase(number.find_last_not_of('0') + 1);
        if (number.back() == '.')
            number.pop_back();
    }
    return number + " " + kUnits[unit].name;
}

std::string countText(std::int64_t count) {
    std::string digits = std::to_string(count);
    const std::size_t first = count < 0 ? 1 : 0;
    for (std::size_t end = digits.size(); end > first + 3; end -= 3)
        digits.insert(end - 3, ",");
    return digits;
}

} // namespace vexmoor
