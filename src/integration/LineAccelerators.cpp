#include "LineAccelerators.h"

#include <cstdio>

namespace vexmoor {

namespace {

constexpr std::string_view kSpace = " \t\r\n";

std::string_view trimmed(std::string_view text) {
    const auto first = text.find_first_not_of(kSpace);
    return first == std::string_view::npos
               ? std::string_view()
               : text.substr(first, text.find_last_not_of(kSpace) - first + 1);
}

/// Removes a double-quoted string and preceding white space from the front and returns the string.
std::optional<std::string> takeString(std::string_view& text) {
    text = trimmed(text);
    if (!text.starts_with('"'))
        return std::nullopt;
    std::string value;
    for (std::size_t i = 1; i < text.size(); ++i) {
        if (text[i] == '"') {
            text.remove_prefix(i + 1);
            return value;
        }
        if (text[i] == '\\')
            ++i;
        if (i < text.size())
            value += text[i];
    }
    return std::nullopt;
}

std::string stringOf(std::string_view value) {
    std::string text = "\"";
    for (const char c : value) {
        if (c == '"' || c == '\\')
            text += '\\';
        text += c;
    }
    return text + "\"";
}

/// Returns the URI that GLib uses for a file; it escapes fewer characters than fileUri().
std::string glibFileUri(const Path& file) {
    constexpr std::string_view kPlain = "!$&'()*+,-./:=@_~";
    std::string uri = "file://";
    for (const char c : file.native()) {
        const bool isAlphanumeric =
            (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
        if (isAlphanumeric || kPlain.find(c) != std::string_view::npos) {
            uri += c;
        } else {
            char encoded[4];
            std::snprintf(encoded, sizeof encoded, "%%%02X", static_cast<unsigned char>(c));
            uri += encoded;
        }
    }
    return uri;
}

} // namespace

std::optional<AcceleratorStatus> LineAccelerators::status(const std::string& text) const {
    if (!isValidUtf8(text) || text.find('\0') != std::string::npos)
        return std::nullopt;
    std::vector<Binding> bindings;
    for (const auto line : linesOf(text))
        if (const auto binding = bindingIn(trimmed(line)))
            bindings.push_back(*binding);
    return statusOf(bindings);
}

std::string LineAccelerators::with(const std::string& text) const {
    return ourLine() + "\n" + text;
}

std::string LineAccelerators::without(const std::string& text) const {
    std::string rest;
    for (const auto line : linesOf(text)) {
        const auto binding = bindingIn(trimmed(line));
        if (!binding || !binding->isOurs || !binding->isCtrlBackspace)
            rest += line;
    }
    return rest;
}

std::optional<Binding> ScriptAccelerators::bindingIn(std::string_view line) const {
    const auto space = line.find(' ');
    if (space == std::string_view::npos)
        return std::nullopt;
    return Binding{line.substr(space + 1) == m_script, isCtrlBackspace(line.substr(0, space))};
}

std::string ScriptAccelerators::ourLine() const {
    return "<Control>BackSpace " + m_script;
}

std::string AcceleratorMap::pathOfNemoScript(const Path& script) {
    std::string path = "<Actions>/ScriptsGroup/script_";
    for (const char c : glibFileUri(script)) {
        if (c == '/')
            path += "\\s";
        else if (c == '&')
            path += "\\a";
        else
            path += c;
    }
    return path;
}

std::optional<Binding> AcceleratorMap::bindingIn(std::string_view line) const {
    constexpr std::string_view kOpening = "(gtk_accel_path";
    if (!line.starts_with(kOpening))
        return std::nullopt;
    line.remove_prefix(kOpening.size());
    const auto path = takeString(line);
    const auto key = path ? takeString(line) : std::nullopt;
    if (!key || trimmed(line) != ")")
        return std::nullopt;
    return Binding{*path == m_path, isCtrlBackspace(*key)};
}

std::string AcceleratorMap::ourLine() const {
    return "(gtk_accel_path " + stringOf(m_path) + R"( "<Primary>BackSpace"))";
}

} // namespace vexmoor
