#include "Quoting.h"

#include <algorithm>
#include <cctype>

namespace vexmoor {

namespace {

bool isPlain(std::string_view word) {
    return !word.empty() && std::ranges::all_of(word, [](char c) {
        return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
               std::string_view("/._+-").find(c) != std::string_view::npos;
    });
}

/// Inserts `escape` before each of the characters.
std::string escaped(std::string_view text, std::string_view characters, char escape) {
    std::string result;
    for (const char c : text) {
        if (characters.find(c) != std::string_view::npos)
            result += escape;
        result += c;
    }
    return result;
}

} // namespace

std::string shellQuoted(std::string_view word) {
    if (isPlain(word))
        return std::string(word);
    std::string result = "'";
    for (const char c : word)
        result.append(c == '\'' ? "'\\''" : std::string(1, c));
    return result + "'";
}

std::string desktopExecQuoted(std::string_view word) {
    if (isPlain(word))
        return std::string(word);
    return keyFileEscaped("\"" + escaped(percentDoubled(word), "\"`$\\", '\\') + "\"");
}

std::string keyFileEscaped(std::string_view text) {
    return escaped(text, "\\", '\\');
}

std::string percentDoubled(std::string_view text) {
    return escaped(text, "%", '%');
}

std::string xmlEscaped(std::string_view text) {
    std::string result;
    for (const char c : text) {
        if (c == '&')
            result += "&amp;";
        else if (c == '<')
            result += "&lt;";
        else if (c == '>')
            result += "&gt;";
        else if (c == '\'')
            result += "&apos;";
        else if (c == '"')
            result += "&quot;";
        else
            result += c;
    }
    return result;
}

} // namespace vexmoor
