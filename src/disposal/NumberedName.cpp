#include "NumberedName.h"

#include "base/Path.h"

namespace vexmoor {

namespace {

constexpr std::size_t kMaxNameBytes = 255;
constexpr std::size_t kMaxStoredBytes = 245;
constexpr std::size_t kMaxKeptExtensionBytes = 32;

bool continuesCharacter(char c) {
    return (static_cast<unsigned char>(c) & 0xC0) == 0x80;
}

/// Inserts `counted` before the extension and limits the result to `most` bytes by truncating the
/// stem. A very long extension counts as part of the stem.
std::string shortened(std::string_view name, const std::string& counted, std::size_t most) {
    auto [stem, extension] = splitExtension(name);
    if (extension.size() > kMaxKeptExtensionBytes) {
        stem = name;
        extension = {};
    }
    std::string ending = counted;
    if (!extension.empty())
        ending.append(".").append(extension);
    if (stem.size() + ending.size() > most) {
        std::size_t kept = most - ending.size();
        std::size_t border = kept;
        while (border > 0 && kept - border < 4 && continuesCharacter(stem[border]))
            --border;
        if (border > 0 && !continuesCharacter(stem[border]))
            kept = border;
        stem = stem.substr(0, kept);
    }
    return std::string(stem) + ending;
}

} // namespace

std::pair<std::string_view, std::string_view> splitExtension(std::string_view name) {
    const auto extension = pathExtension(name);
    if (extension.empty())
        return {name, {}};
    return {name.substr(0, name.size() - extension.size() - 1), extension};
}

std::string numberedName(std::string_view name, unsigned number) {
    const std::string counted = " " + std::to_string(number);
    const auto [stem, extension] = splitExtension(name);
    std::string result = std::string(stem) + counted;
    if (!extension.empty())
        result.append(".").append(extension);
    return result.size() <= kMaxNameBytes ? result : shortened(name, counted, kMaxNameBytes);
}

std::string storedName(std::string_view name, unsigned number) {
    if (number == 1 && name.size() <= kMaxStoredBytes)
        return std::string(name);
    return shortened(name, number > 1 ? "." + std::to_string(number) : std::string(),
                     kMaxStoredBytes);
}

} // namespace vexmoor
