#include "Path.h"

#include <algorithm>
#include <cstdlib>
#include <memory>

namespace vexmoor {

namespace {

constexpr std::string_view kReplacement = "\xEF\xBF\xBD";

/// Returns the length of the valid UTF-8 sequence at the start of `bytes` (table of RFC 3629), or 0
/// if there is none.
std::size_t sequenceLength(std::string_view bytes) {
    const auto at = [&](std::size_t i) { return static_cast<unsigned char>(bytes[i]); };
    const auto follows = [&](std::size_t i, unsigned low = 0x80, unsigned high = 0xBF) {
        return i < bytes.size() && at(i) >= low && at(i) <= high;
    };
    const unsigned first = at(0);
    if (first < 0x80)
        return 1;
    if (first >= 0xC2 && first <= 0xDF)
        return follows(1) ? 2 : 0;
    if (first >= 0xE0 && first <= 0xEF) {
        const unsigned low = first == 0xE0 ? 0xA0 : 0x80;
        const unsigned high = first == 0xED ? 0x9F : 0xBF;
        return follows(1, low, high) && follows(2) ? 3 : 0;
    }
    if (first >= 0xF0 && first <= 0xF4) {
        const unsigned low = first == 0xF0 ? 0x90 : 0x80;
        const unsigned high = first == 0xF4 ? 0x8F : 0xBF;
        return follows(1, low, high) && follows(2) && follows(3) ? 4 : 0;
    }
    return 0;
}

bool isUnreserved(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
           std::string_view("-_.!~*'()").find(c) != std::string_view::npos;
}

int hexDigit(char c) {
    if (c >= '0' && c <= '9')
        return c - '0';
    if (c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    if (c >= 'A' && c <= 'F')
        return c - 'A' + 10;
    return -1;
}

/// Removes the prefix, ignoring case. Returns false if `text` does not start with it.
bool removePrefix(std::string_view& text, std::string_view prefix) {
    const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? char(c - 'A' + 'a') : c; };
    if (!std::ranges::equal(text.substr(0, prefix.size()), prefix, {}, lower, lower))
        return false;
    text.remove_prefix(prefix.size());
    return true;
}

std::string resolved(const std::string& path) {
    const std::unique_ptr<char, decltype(&std::free)> real(::realpath(path.c_str(), nullptr),
                                                           &std::free);
    return real ? real.get() : std::string();
}

std::string_view withoutTrailingSlashes(std::string_view path) {
    while (path.size() > 1 && path.back() == '/')
        path.remove_suffix(1);
    return path;
}

} // namespace

Path standardized(const Path& path) {
    std::string input = path.native();
    if (input.empty())
        return path; // an empty path must not become the current folder
    if (input.front() != '/') {
        std::error_code code;
        const Path folder = std::filesystem::current_path(code);
        if (code)
            return path; // resolving it from the root would name a different file
        input = folder.native() + "/" + input;
    }
    std::string result;
    std::string_view rest = input;
    while (!rest.empty()) {
        const auto end = std::min(rest.find('/'), rest.size());
        const auto component = rest.substr(0, end);
        rest.remove_prefix(std::min(end + 1, rest.size()));
        if (component.empty() || component == ".")
            continue;
        if (component == ".." && !result.empty()) {
            const std::string parent = resolved(result + "/..");
            if (!parent.empty()) {
                result = parent == "/" ? "" : parent;
                continue;
            }
        } else if (component == "..") {
            continue; // the parent of the root is the root
        }
        result.append("/").append(component);
    }
    return result.empty() ? Path("/") : Path(result);
}

bool endsInDots(const Path& path) {
    const auto trimmed = withoutTrailingSlashes(path.native());
    const auto last = trimmed.substr(trimmed.rfind('/') + 1);
    return last == "." || last == "..";
}

std::string lastComponent(const Path& path) {
    const auto trimmed = withoutTrailingSlashes(path.native());
    return std::string(trimmed == "/" ? trimmed : trimmed.substr(trimmed.rfind('/') + 1));
}

std::string_view pathExtension(std::string_view path) {
    auto name = withoutTrailingSlashes(path);
    name.remove_prefix(name.rfind('/') + 1);
    const auto dot = name.rfind('.');
    if (dot == std::string_view::npos || name.substr(0, dot).find_first_not_of('.') == name.npos)
        return {};
    const auto extension = name.substr(dot + 1);
    return extension.find(' ') == std::string_view::npos ? extension : std::string_view();
}

std::string percentEncoded(std::string_view bytes) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    std::string result;
    result.reserve(bytes.size() + 16);
    for (const char c : bytes) {
        if (isUnreserved(c) || c == '/') {
            result += c;
        } else {
            const auto byte = static_cast<unsigned char>(c);
            result += {'%', kDigits[byte >> 4], kDigits[byte & 15]};
        }
    }
    return result;
}

std::optional<std::string> percentDecoded(std::string_view text) {
    if (text.find('\0') != std::string_view::npos)
        return std::nullopt;
    std::string result;
    result.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '%') {
            result += text[i];
            continue;
        }
        if (i + 2 >= text.size())
            return std::nullopt;
        const int high = hexDigit(text[i + 1]);
        const int low = hexDigit(text[i + 2]);
        if (high < 0 || low < 0 || (high == 0 && low == 0))
            return std::nullopt;
        result += static_cast<char>(high * 16 + low);
        i += 2;
    }
    return result;
}

std::string fileUri(const Path& path) {
    return "file://" + percentEncoded(path.native());
}

std::optional<Path> pathFromFileUri(std::string_view uri) {
    if (!removePrefix(uri, "file:"))
        return std::nullopt;
    if (removePrefix(uri, "//"))
        removePrefix(uri, "localhost");
    if (!uri.starts_with("/"))
        return std::nullopt;
    auto bytes = percentDecoded(uri);
    return bytes ? std::optional<Path>(*std::move(bytes)) : std::nullopt;
}

bool isValidUtf8(std::string_view bytes) {
    while (!bytes.empty()) {
        const auto length = sequenceLength(bytes);
        if (length == 0)
            return false;
        bytes.remove_prefix(length);
    }
    return true;
}

std::string displayText(std::string_view bytes) {
    std::string result;
    result.reserve(bytes.size());
    while (!bytes.empty()) {
        const auto length = sequenceLength(bytes);
        result.append(length == 0 ? kReplacement : bytes.substr(0, length));
        bytes.remove_prefix(std::max<std::size_t>(length, 1));
    }
    return result;
}

std::string pathToJsonText(std::string_view bytes) {
    return isValidUtf8(bytes) ? std::string(bytes) : "file://" + percentEncoded(bytes);
}

Path pathFromJsonText(const std::string& text) {
    constexpr std::string_view kScheme = "file://";
    if (text.starts_with(kScheme) && !text.starts_with("file:///")) { // written for a relative path
        if (const auto path = pathFromFileUri("file:///" + text.substr(kScheme.size())))
            return path->relative_path();
    }
    return pathFromFileUri(text).value_or(Path(text));
}

} // namespace vexmoor
