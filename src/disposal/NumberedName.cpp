#include "NumberedName.h"

namespace vexmoor {

namespace {

constexpr std::size_t kMaxStoredBytes = 245;
constexpr std::size_t kMaxKeptExtensionBytes = 32;

bool continuesCharacter(char c) {
    return (static_cast<unsigned char>(c) & 0xC0) == 0x80;
}

} // namespace

std::pair<std::string_view, std::string_view> splitExtension(std::string_view name) {
    const auto point = name.rfind('.');
    if (point == std::string_view::npos || point == 0 || point + 1 == name.size())
        return {name, {}};
    return {name.substr(0, point), name.substr(point + 1)};
}

std::string numberedName(std::string_view name, unsigned number) {
    const auto [stem, extension] = splitExtension(name);
    std::string result = std::string(stem) + " " + std::to_string(number);
    if (!extension.empty())
        result.append(".").append(extension);
    return result;
}

std::string storedName(std::string_view name, unsigned number) {
    auto [stem, extension] = splitExtension(name);
    if (extension.size() > kMaxKeptExtensionBytes) {
        stem = name;
        extension = {};
    }
    std::string ending = number > 1 ? "." + std::to_string(number) : std::string();
    if (!extension.empty())
        ending.append(".").append(extension);
    if (number == 1 && name.size() <= kMaxStoredBytes)
        return std::string(name);
    if (stem.size() + ending.size() > kMaxStoredBytes) {
        std::size_t kept = kMaxStoredBytes - ending.size();
        std::size_t border = kept;
        while (border > 0 && kept - border < 4 && continuesCharacter(stem[border]))
            --border;
        if (border > 0 && !continuesCharacter(stem[border]))
            kept = border;
        stem = stem.substr(0, kept);
    }
    return std::string(stem) + ending;
}

} // namespace vexmoor
